#include "platform/x11/UserInput.h"

#include "platform/x11/XcbReply.h"

#include <xcb/screensaver.h>

namespace quorvel {

std::chrono::milliseconds timeSinceUserInput(xcb_connection_t* connection) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_screensaver_id);
    if (!extension || !extension->present)
        return {};
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const XcbOwned<xcb_screensaver_query_info_reply_t> reply(xcb_screensaver_query_info_reply(
        connection, xcb_screensaver_query_info(connection, root), nullptr));
    return std::chrono::milliseconds(reply ? reply->ms_since_user_input : 0);
}

} // namespace quorvel
