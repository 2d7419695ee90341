#include "ui/PopupGrab.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace quorvel {

bool takeGrabs(QWidget& popup) {
    QWindow* window = popup.windowHandle();
    if (!window || !qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        return true;
    const bool hasPointer = window->setMouseGrabEnabled(true);
    return window->setKeyboardGrabEnabled(true) && hasPointer;
}

} // namespace quorvel
