#pragma once

#include "platform/Desktop.h"
#include "ui/popover/PanelFrame.h"

#include <QPropertyAnimation>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace quorvel {

class Icons;

/// A sentence that shows for a moment, low on the screen of the pointer, and goes by itself. It
/// takes neither the focus nor clicks.
class NoticePanel final : public QWidget {
    Q_OBJECT

public:
    explicit NoticePanel(const Icons& icons);

    /// Replaces what is shown.
    void present(const Notice& notice);

    static constexpr int shownMilliseconds = 1800;
    static constexpr int fadeMilliseconds = 200;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void fill(const Notice& notice);
    void dress();
    void place();
    void goAway();

    const Icons& m_icons;
    PanelFrame m_frame;
    QLabel* m_icon;
    QLabel* m_title;
    QLabel* m_detail;
    QTimer m_dismissal;
    QPropertyAnimation m_fade;
};

} // namespace quorvel
