#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace quorvel {

/// Sees to it that an open popup has the pointer and the keyboard. While another program holds
/// them, they are asked for again for a second. Without grabs on this platform, nothing is done.
class PopupGrab final : public QObject {
    Q_OBJECT

public:
    /// `popup` outlives this.
    explicit PopupGrab(QWidget& popup);

    /// Begins when the popup has been shown.
    void secure();
    void stop();

signals:
    /// Another program keeps the keyboard: the popup cannot be used and has to close.
    void refused();

private:
    void attempt();
    bool take();

    QWidget& m_popup;
    QTimer m_retry;
    int m_tries = 0;
};

} // namespace quorvel
