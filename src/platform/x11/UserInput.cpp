#include "platform/x11/UserInput.h"

#include "platform/x11/XcbReply.h"

#include <sys/uio.h>
#include <xcb/xcbext.h>

namespace quorvel {

namespace {

/// One request of the screen saver extension is too little to ask for its library.
xcb_extension_t extension = {"MIT-SCREEN-SAVER", 0};
constexpr uint8_t queryInfo = 1;

struct QueryInfoRequest {
    uint8_t majorOpcode = 0; ///< This and the length are filled in when it is sent.
    uint8_t minorOpcode = queryInfo;
    uint16_t length = 0;
    xcb_drawable_t drawable = XCB_NONE;
};

struct QueryInfoReply {
    uint8_t responseType;
    uint8_t state;
    uint16_t sequence;
    uint32_t length;
    xcb_window_t saverWindow;
    uint32_t millisecondsUntilSaver;
    uint32_t millisecondsSinceUserInput;
};

unsigned sendQuery(xcb_connection_t* connection) {
    QueryInfoRequest request;
    request.drawable = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    // The library writes into the two entries before the first one.
    iovec parts[3] = {{}, {}, {&request, sizeof request}};
    const xcb_protocol_request_t protocol{
        .count = 1, .ext = &extension, .opcode = queryInfo, .isvoid = 0};
    return xcb_send_request(connection, XCB_REQUEST_CHECKED, parts + 2, &protocol);
}

} // namespace

std::chrono::milliseconds timeSinceUserInput(xcb_connection_t* connection) {
    const auto* known = xcb_get_extension_data(connection, &extension);
    if (!known || !known->present)
        return {};
    xcb_generic_error_t* error = nullptr;
    const XcbOwned<void> reply(xcb_wait_for_reply(connection, sendQuery(connection), &error));
    const XcbOwned<xcb_generic_error_t> failure(error);
    if (!reply)
        return {};
    const auto* answer = static_cast<const QueryInfoReply*>(reply.get());
    return std::chrono::milliseconds(answer->millisecondsSinceUserInput);
}

} // namespace quorvel
