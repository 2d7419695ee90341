#include "platform/x11/X11Workspace.h"

#include <array>
#include <chrono>

namespace quorvel {

namespace {

/// How long after an activation the focus is still led to the element.
constexpr std::chrono::seconds activationSpan{1};

/// As a pager or a dock, so that the window manager does not take it for stealing the focus.
constexpr quint32 fromUser = 2;

} // namespace

X11Workspace::X11Workspace(X11Connection& connection, DesktopFiles& desktopFiles)
    : m_connection(connection)
    , m_desktopFiles(desktopFiles)
    , m_windows(connection)
    , m_watched(std::make_unique<X11WatchedWindows>(connection)) {
    if (!m_connection.isAlive())
        return;
    watchRoot();
    connect(&m_connection, &X11Connection::eventArrived, this,
            [this](const xcb_generic_event_t* event) { handle(*event); });
    m_focus = watchFocus();
}

void X11Workspace::watchRoot() {
    // The root window is told when the focus comes from or goes to nobody.
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(m_connection.xcb(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    m_connection.flush();
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    const xcb_window_t window = readFocus().front;
    const auto info = window != XCB_WINDOW_NONE ? m_watched->info(window) : std::nullopt;
    if (!info)
        return std::nullopt;
    RunningApplication application;
    application.window = window;
    application.processIdentifier = info->processIdentifier;
    application.kind = info->kind;
    const auto [instance, name] = info->windowClass;
    if (const auto known = m_desktopFiles.find(instance, name)) {
        application.name = known->name;
        application.bundleIdentifier = known->id;
    } else if (!info->windowClass.isEmpty()) {
        application.name = name.isEmpty() ? instance : name;
    }
    return application;
}

quint64 X11Workspace::focusedElement() const {
    return m_windows.inputFocus();
}

bool X11Workspace::isRunning(const FocusTarget& target) const {
    const bool alive = target.processIdentifier == 0 || isProcessAlive(target.processIdentifier);
    return alive && m_windows.exists(xcb_window_t(target.window));
}

bool X11Workspace::announcesChanges() const {
    return m_connection.isAlive();
}

void X11Workspace::activate(const FocusTarget& target) {
    const auto window = xcb_window_t(target.window);
    const auto element = xcb_window_t(target.element);
    const xcb_window_t focus = m_windows.inputFocus();
    m_activation.reset();
    if (m_windows.holdsFocus(window, element, focus))
        return;
    const bool leadOn = m_windows.isInside(element, window);
    if (m_windows.isInside(focus, window) || !hasWindowManager())
        return giveFocus(leadOn ? element : window);
    raise(window);
    if (leadOn) {
        m_activation = target;
        m_activationEnd.setRemainingTime(activationSpan);
    }
}

void X11Workspace::raise(xcb_window_t window) {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom(u"_NET_ACTIVE_WINDOW"_qs);
    message.data.data32[0] = fromUser;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(m_connection.xcb(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    m_connection.flush();
}

void X11Workspace::giveFocus(xcb_window_t window) {
    // Refused when the window is not shown (any more): then the focus stays where it is.
    xcb_set_input_focus(m_connection.xcb(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    m_connection.flush();
}

bool X11Workspace::hasWindowManager() const {
    const QString property = u"_NET_SUPPORTING_WM_CHECK"_qs;
    const auto check = m_windows.values(m_connection.root(), property, XCB_ATOM_WINDOW).value(0);
    // The property on the root window outlives its window manager.
    return check != 0 && m_windows.values(check, property, XCB_ATOM_WINDOW).value(0) == check;
}

xcb_window_t X11Workspace::frontWindow(xcb_window_t element) const {
    const auto active =
        m_windows.values(m_connection.root(), u"_NET_ACTIVE_WINDOW"_qs, XCB_ATOM_WINDOW);
    if (!active.isEmpty() && hasWindowManager())
        return active.first();
    return m_windows.topWindow(element);
}

X11Workspace::Focus X11Workspace::readFocus() const {
    const xcb_window_t element = m_windows.inputFocus();
    return {frontWindow(element), element};
}

X11Workspace::Focus X11Workspace::watchFocus() {
    Focus focus;
    bool isNew = true;
    // What changed before we were listening is only seen by looking again.
    while (isNew) {
        focus = readFocus();
        isNew = m_watched->watch(focus.front);
        isNew = m_watched->watch(focus.element) || isNew;
    }
    return focus;
}

void X11Workspace::handle(const xcb_generic_event_t& event) {
    m_watched->handle(event);
    if (mayMoveFocus(event))
        scheduleRefresh();
}

bool X11Workspace::mayMoveFocus(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
    case XCB_DESTROY_NOTIFY:
        return true;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return change.atom == m_connection.atom(u"_NET_ACTIVE_WINDOW"_qs) ||
               change.atom == m_connection.atom(u"_NET_SUPPORTING_WM_CHECK"_qs);
    }
    default:
        return false;
    }
}

void X11Workspace::scheduleRefresh() {
    if (m_refreshScheduled)
        return;
    m_refreshScheduled = true;
    QMetaObject::invokeMethod(this, &X11Workspace::refresh, Qt::QueuedConnection);
}

void X11Workspace::refresh() {
    m_refreshScheduled = false;
    const Focus focus = watchFocus();
    if (!m_connection.isAlive() || focus == m_focus)
        return;
    m_focus = focus;
    completeActivation();
    emit focusChanged();
}

void X11Workspace::completeActivation() {
    if (!m_activation || m_focus.element == XCB_WINDOW_NONE)
        return;
    const auto element = xcb_window_t(m_activation->element);
    const bool open = !m_activationEnd.hasExpired() && m_focus.element != element;
    const bool inside = m_windows.isInside(m_focus.element, xcb_window_t(m_activation->window));
    if (open && inside)
        giveFocus(element);
    if (inside || m_activationEnd.hasExpired())
        m_activation.reset();
}

} // namespace quorvel
