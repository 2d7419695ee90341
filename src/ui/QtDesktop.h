#pragma once

#include "platform/Desktop.h"

namespace quorvel {

/// The desktop through Qt: its opener for files, message boxes that hold nothing up.
class QtDesktop final : public Desktop {
public:
    bool openFile(const QString& path) override;
    bool openUrl(const QUrl& url) override;
    void showMessage(const QString& title, const QString& message) override;
};

} // namespace quorvel
