#include "platform/x11/X11WindowInfo.h"

#include <QSysInfo>

#include <cerrno>
#include <csignal>

#include <xcb/res.h>

namespace quorvel {

namespace {

/// Process identifiers of another machine mean nothing here.
bool isOfThisMachine(const X11Windows& windows, xcb_window_t window) {
    const QByteArray machine = windows.bytes(window, XCB_ATOM_WM_CLIENT_MACHINE);
    const QByteArray here = QSysInfo::machineHostName().toLocal8Bit();
    return machine.isEmpty() || machine.split('.').value(0) == here.split('.').value(0);
}

qint64 claimedProcess(const X11Windows& windows, xcb_window_t window) {
    if (!isOfThisMachine(windows, window))
        return 0;
    return windows.values(window, u"_NET_WM_PID"_qs, XCB_ATOM_CARDINAL).value(0);
}

/// The process at the other end of the connection that made the window, by the server's account.
qint64 connectedProcess(X11Connection& connection, xcb_window_t window) {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection.xcb(), &xcb_res_id);
    if (!extension || !extension->present)
        return 0;
    const xcb_res_client_id_spec_t question = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto answer = connection.reply(xcb_res_query_client_ids_reply,
                                         xcb_res_query_client_ids(connection.xcb(), 1, &question));
    if (!answer)
        return 0;
    const auto ids = xcb_res_query_client_ids_ids_iterator(answer.get());
    const bool answered = ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0;
    return answered ? *xcb_res_client_id_value_value(ids.data) : 0;
}

qint64 processOf(X11Connection& connection, const X11Windows& windows, xcb_window_t window) {
    // A sandboxed program knows itself by another number; one that forked has left its first one.
    for (const qint64 process :
         {claimedProcess(windows, window), connectedProcess(connection, window)})
        if (isProcessAlive(process))
            return process;
    return 0;
}

ApplicationKind kindOf(X11Connection& connection, const X11Windows& windows, xcb_window_t window) {
    const QList<quint32> types = windows.values(window, u"_NET_WM_WINDOW_TYPE"_qs, XCB_ATOM_ATOM);
    const bool overlay = types.contains(connection.atom(u"_NET_WM_WINDOW_TYPE_DOCK"_qs)) ||
                         types.contains(connection.atom(u"_NET_WM_WINDOW_TYPE_DESKTOP"_qs));
    return overlay ? ApplicationKind::overlay : ApplicationKind::ordinary;
}

} // namespace

std::optional<WindowInfo> readWindowInfo(X11Connection& connection, xcb_window_t window) {
    const X11Windows windows(connection);
    WindowInfo info;
    info.windowClass = windows.classOf(window);
    info.processIdentifier = processOf(connection, windows, window);
    info.kind = kindOf(connection, windows, window);
    // Asked last: if it is there now, all answers above were about this window.
    return windows.exists(window) ? std::optional(info) : std::nullopt;
}

bool isProcessAlive(qint64 processIdentifier) {
    if (processIdentifier <= 0)
        return false;
    return ::kill(pid_t(processIdentifier), 0) == 0 || errno == EPERM;
}

} // namespace quorvel
