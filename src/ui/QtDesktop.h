#pragma once

#include "platform/Desktop.h"

#include <memory>

namespace quorvel {

class Icons;
class NoticePanel;

/// The desktop through Qt: its opener for files, message boxes that hold nothing up.
class QtDesktop final : public Desktop {
public:
    explicit QtDesktop(const Icons& icons);
    ~QtDesktop() override;

    bool openFile(const QString& path) override;
    bool openUrl(const QUrl& url) override;
    void showMessage(const QString& title, const QString& message) override;
    void showNotice(const Notice& notice) override;

private:
    const Icons& m_icons;
    std::unique_ptr<NoticePanel> m_noticePanel; ///< Made for the first notice.
};

} // namespace quorvel
