#include "ui/PopupScreen.h"

#include <QGuiApplication>

namespace quorvel {

PopupScreen::PopupScreen() {
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this](const QScreen* screen) {
        if (screen == m_screen)
            emit gone();
    });
}

void PopupScreen::follow(QPoint place) {
    QScreen* at = QGuiApplication::screenAt(place);
    QScreen* screen = at ? at : QGuiApplication::primaryScreen();
    if (m_screen == screen)
        return;
    if (m_screen)
        disconnect(m_screen, nullptr, this, nullptr);
    m_screen = screen;
    connect(screen, &QScreen::availableGeometryChanged, this, &PopupScreen::limitsChanged);
}

QScreen* PopupScreen::screen() const {
    return m_screen ? m_screen.data() : QGuiApplication::primaryScreen();
}

QRect PopupScreen::limits() const {
    const QScreen* shown = screen();
    return shown ? shown->availableGeometry() : QRect();
}

} // namespace quorvel
