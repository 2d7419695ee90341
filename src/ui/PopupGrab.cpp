#include "ui/PopupGrab.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace quorvel {

bool takeGrabs(QWidget& popup) {
    QWindow* window = popup.windowHandle();
    if (!window || !qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        return true;
    return window->setMouseGrabEnabled(true) && window->setKeyboardGrabEnabled(true);
}

} // namespace quorvel
