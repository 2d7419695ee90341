#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QScreen>

namespace quorvel {

/// The screen that a menu is shown on.
class PopupScreen : public QObject {
    Q_OBJECT

public:
    PopupScreen();

    /// The screen at this place of the desktop, or the primary one when there is none.
    void follow(QPoint place);

    /// Null when every screen is gone.
    QScreen* screen() const;

    /// What a menu may cover, in points of the desktop; empty when every screen is gone.
    QRect limits() const;

signals:
    /// It was unplugged: what is on it cannot be seen any more.
    void gone();
    void limitsChanged();

private:
    QPointer<QScreen> m_screen;
};

} // namespace quorvel
