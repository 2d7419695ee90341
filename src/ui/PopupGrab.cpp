#include "ui/PopupGrab.h"

#include "foundation/Log.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace quorvel {

namespace {

constexpr int retryMilliseconds = 100;
constexpr int mostTries = 10;

} // namespace

PopupGrab::PopupGrab(QWidget& popup)
    : m_popup(popup) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &PopupGrab::attempt);
}

void PopupGrab::secure() {
    m_tries = 0;
    attempt();
}

void PopupGrab::stop() {
    m_retry.stop();
}

/// They are asked for again even if the toolkit has them all: it does not notice when the pointer
/// was refused.
void PopupGrab::attempt() {
    const bool hasThem = take();
    if (++m_tries < mostTries) {
        m_retry.start(retryMilliseconds);
    } else if (!hasThem) {
        logLine(QStringLiteral("[Quorvel Menu] Closed: another program holds the keyboard."));
        emit refused();
    }
}

bool PopupGrab::take() {
    QWindow* window = m_popup.windowHandle();
    if (!window || !qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        return true;
    const bool hasPointer = window->setMouseGrabEnabled(true);
    return window->setKeyboardGrabEnabled(true) && hasPointer;
}

} // namespace quorvel
