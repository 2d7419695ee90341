#include "platform/x11/ClipboardThread.h"

#include "platform/desktop/ClipboardImage.h"
#include "platform/desktop/ClipboardText.h"

#include <poll.h>
#include <unistd.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <malloc.h>

namespace quorvel {

namespace {

const QString secretReason = QStringLiteral("marked as secret by its owner");
const QString replacedReason = QStringLiteral("replaced before it could be read");
const QString ownerGoneReason = QStringLiteral("its owner went away");
const QString overtakenReason = QStringLiteral("overtaken by our own write");

constexpr std::chrono::milliseconds primaryStall{700};
constexpr qsizetype largeContent = 4 * 1024 * 1024;

template <typename T>
const T& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

bool isUsable(const ClipboardSnapshotItem& item) {
    return !item.payloadByType.isEmpty();
}

} // namespace

ClipboardThread::ClipboardThread(ClipboardExchange& exchange, int wakeFd, TransferLimits limits)
    : m_exchange(exchange)
    , m_wakeFd(wakeFd)
    , m_limits(limits) {}

bool ClipboardThread::connect() {
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (xcb_connection_has_error(m_connection.get()))
        return false;
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
    for (; screen > 0 && roots.rem > 1; --screen)
        xcb_screen_next(&roots);
    m_root = roots.data->root;
    return setUp();
}

bool ClipboardThread::setUp() {
    const auto* xfixes = xcb_get_extension_data(m_connection.get(), &xcb_xfixes_id);
    if (!xfixes || !xfixes->present)
        return false;
    m_xfixesEvent = xfixes->first_event;
    const auto cookie = xcb_xfixes_query_version(m_connection.get(), XCB_XFIXES_MAJOR_VERSION,
                                                 XCB_XFIXES_MINOR_VERSION);
    const XcbOwned<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(m_connection.get(), cookie, nullptr));
    m_atoms = std::make_unique<AtomTable>(m_connection.get());
    m_clipboard = m_atoms->atom(QStringLiteral("CLIPBOARD"));
    m_timeProperty = m_atoms->atom(QStringLiteral("QUORVEL_TIME"));
    createWindow();
    m_server =
        std::make_unique<SelectionServer>(m_connection.get(), *m_atoms, m_window, m_clipboard);
    m_primaryServer =
        std::make_unique<SelectionServer>(m_connection.get(), *m_atoms, m_window, XCB_ATOM_PRIMARY);
    fetchContentFromBeforeStart();
    return true;
}

void ClipboardThread::createWindow() {
    m_window = xcb_generate_id(m_connection.get());
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection.get(), 0, m_window, m_root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_xfixes_select_selection_input(m_connection.get(), m_window, m_clipboard,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_flush(m_connection.get());
}

void ClipboardThread::fetchContentFromBeforeStart() {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), m_clipboard);
    const XcbOwned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    if (reply && reply->owner != XCB_WINDOW_NONE)
        startTransfer(XCB_CURRENT_TIME, true);
}

void ClipboardThread::run() {
    while (!m_stopping) {
        handleEvents();
        handleCommands();
        expireWhatIsDue();
        handleEvents(); // replies may have brought events along
        if (xcb_connection_has_error(m_connection.get()))
            return m_exchange.connectionLost();
        m_exchange.setTransferring(m_transfer && !m_transferFromStart);
        if (!m_stopping)
            waitForSomething();
    }
}

void ClipboardThread::waitForSomething() {
    xcb_flush(m_connection.get());
    std::array<pollfd, 2> sources{{
        {xcb_get_file_descriptor(m_connection.get()), POLLIN, 0},
        {m_wakeFd, POLLIN, 0},
    }};
    poll(sources.data(), sources.size(), millisecondsToNextDeadline());
}

int ClipboardThread::millisecondsToNextDeadline() const {
    std::optional<Clock::time_point> next;
    const auto consider = [&](std::optional<Clock::time_point> deadline) {
        if (deadline)
            next = next ? std::min(*next, *deadline) : *deadline;
    };
    consider(m_server->deadline());
    consider(m_primaryServer->deadline());
    for (const auto* transfer : {m_transfer.get(), m_primaryTransfer.get()})
        if (transfer)
            consider(transfer->deadline());
    if (!next)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
    return int(std::clamp<qint64>(left.count(), 0, 60000));
}

void ClipboardThread::expireWhatIsDue() {
    m_server->expire();
    m_primaryServer->expire();
    if (m_primaryTransfer && Clock::now() >= m_primaryTransfer->deadline())
        m_primaryTransfer->expire();
    if (m_primaryTransfer && m_primaryTransfer->isFinished())
        completePrimaryTransfer();
    if (!m_transfer || Clock::now() < m_transfer->deadline())
        return;
    m_transfer->expire();
    completeTransfer(IfUnreadable::isEmpty);
}

void ClipboardThread::handleEvents() {
    while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
        handleEvent(*event);
}

void ClipboardThread::handleEvent(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (type == m_xfixesEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return handleOwnerChange(event);
    switch (type) {
    case XCB_SELECTION_NOTIFY:
        if (auto* transfer = transferOf(as<xcb_selection_notify_event_t>(event).requestor))
            transfer->handle(as<xcb_selection_notify_event_t>(event));
        break;
    case XCB_SELECTION_REQUEST:
        handleSelectionRequest(as<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR:
        if (as<xcb_selection_clear_event_t>(event).selection == XCB_ATOM_PRIMARY)
            m_primaryServer->lost();
        break;
    case XCB_PROPERTY_NOTIFY:
        handlePropertyNotify(as<xcb_property_notify_event_t>(event));
        break;
    case XCB_DESTROY_NOTIFY:
        m_server->forgetRequestor(as<xcb_destroy_notify_event_t>(event).window);
        m_primaryServer->forgetRequestor(as<xcb_destroy_notify_event_t>(event).window);
        break;
    default: // errors of requests to windows that have vanished, and what we did not ask for
        break;
    }
    if (m_transfer && m_transfer->isFinished())
        completeTransfer(IfUnreadable::isEmpty);
    if (m_primaryTransfer && m_primaryTransfer->isFinished())
        completePrimaryTransfer();
}

SelectionTransfer* ClipboardThread::transferOf(xcb_window_t requestor) {
    for (auto* transfer : {m_transfer.get(), m_primaryTransfer.get()})
        if (transfer && transfer->requestor() == requestor)
            return transfer;
    return nullptr;
}

void ClipboardThread::handleSelectionRequest(const xcb_selection_request_event_t& event) {
    (event.selection == m_clipboard ? *m_server : *m_primaryServer).handle(event);
}

void ClipboardThread::handlePropertyNotify(const xcb_property_notify_event_t& event) {
    if (event.window == m_window) {
        if (event.atom != m_timeProperty || m_awaitingTime.empty())
            return;
        const ClipboardCommand command = std::move(m_awaitingTime.front());
        m_awaitingTime.pop_front();
        carryOut(command, event.time);
        return confirmCommand();
    }
    if (auto* transfer = transferOf(event.window))
        return transfer->handle(event);
    m_server->handle(event);
    m_primaryServer->handle(event);
}

void ClipboardThread::handleOwnerChange(const xcb_generic_event_t& generic) {
    const auto& event = as<xcb_xfixes_selection_notify_event_t>(generic);
    const bool ownClear =
        event.owner == XCB_WINDOW_NONE && event.selection_timestamp == m_ownClearTime;
    if (event.owner == m_window || ownClear)
        return;
    m_server->lost();
    const bool ownerExited = event.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER;
    abandonTransfer(ownerExited ? ownerGoneReason : replacedReason);
    if (event.owner != XCB_WINDOW_NONE) {
        m_lastForeign.reset();
        return startTransfer(event.selection_timestamp, false);
    }
    if (ownerExited)
        return keepAlive(event.timestamp);
    // Emptied on purpose, as programs for secrets do: it must stay empty.
    m_lastForeign.reset();
    handOver({.afterWrite = m_lastWrite});
}

/// The owner of what was copied has exited: without us its content would be gone.
void ClipboardThread::keepAlive(xcb_timestamp_t time) {
    if (m_lastForeign && isUsable(*m_lastForeign))
        m_server->own(*m_lastForeign, time);
    else
        handOver({.afterWrite = m_lastWrite});
}

void ClipboardThread::startTransfer(xcb_timestamp_t time, bool wasThereAtStart) {
    m_transferFromStart = wasThereAtStart;
    m_transferAfterWrite = m_lastWrite;
    m_transfer = std::make_unique<SelectionTransfer>(m_connection.get(), *m_atoms, m_root,
                                                     m_clipboard, time, m_limits);
}

void ClipboardThread::abandonTransfer(const QString& reason) {
    if (!m_transfer)
        return;
    m_transfer->cutShort(reason);
    completeTransfer(IfUnreadable::passOver);
}

/// What cannot be read is on the clipboard all the same, and what was there before is not.
void ClipboardThread::completeTransfer(IfUnreadable ifUnreadable) {
    TransferResult result = m_transfer->takeResult();
    m_transfer.reset();
    ClipboardHandover content{.afterWrite = m_transferAfterWrite,
                              .wasThereAtStart = m_transferFromStart};
    if (result.secret) {
        m_exchange.countSkipped(secretReason);
        return handOver(std::move(content));
    }
    if (!result.problem.isEmpty())
        m_exchange.countFailed(result.problem);
    m_lastForeign = result.item;
    content.item = std::move(result.item);
    if (isUsable(content.item) || ifUnreadable == IfUnreadable::isEmpty)
        handOver(std::move(content));
    if (result.droppedBytes > largeContent)
        malloc_trim(0);
}

void ClipboardThread::handOver(ClipboardHandover content) {
    content.text = plainText(content.item);
    content.imagePng = ownPng(content.item);
    const auto image = content.imagePng.isEmpty() ? convertibleImage(content.item) : std::nullopt;
    content.ready = !image;
    const auto handover = std::make_shared<ClipboardHandover>(std::move(content));
    m_exchange.handOver(handover);
    if (image)
        m_imageConversion.post([this, handover, image = *image] {
            m_exchange.markReady(handover, convertedToPng(image));
            if (image.data.size() > largeContent)
                malloc_trim(0);
        });
}

void ClipboardThread::handleCommands() {
    uint64_t ticks = 0;
    if (read(m_wakeFd, &ticks, sizeof ticks) < 0)
        return; // nothing waits
    for (ClipboardCommand& command : m_exchange.takeCommands()) {
        if (command.kind == ClipboardCommand::Kind::stop) {
            m_stopping = true;
            return;
        }
        m_awaitingTime.push_back(std::move(command));
        askForTime();
    }
}

/// Taking a selection needs a time of the server: a change of a property brings one.
void ClipboardThread::askForTime() {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_window, m_timeProperty,
                        XCB_ATOM_INTEGER, 32, 0, nullptr);
    xcb_flush(m_connection.get());
}

/// An answer from the server tells that it has processed all that was sent before.
void ClipboardThread::confirmCommand() {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), m_clipboard);
    const XcbOwned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    m_exchange.confirmCommand();
}

/// It may paste from either selection.
void ClipboardThread::expectReader(xcb_window_t window) {
    const auto fetched = [this, isTold = std::make_shared<bool>(false)] {
        if (!std::exchange(*isTold, true))
            m_exchange.countFetch();
    };
    m_server->expectReader(window, fetched);
    m_primaryServer->expectReader(window, fetched);
}

/// Only what is selected in the program of the window: the selection of another one may be hours
/// old.
void ClipboardThread::readPrimary(xcb_window_t window) {
    const auto cookie = xcb_get_selection_owner(m_connection.get(), XCB_ATOM_PRIMARY);
    const XcbOwned<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    if (m_primaryTransfer || !reply || !isSameClient(m_connection.get(), reply->owner, window))
        return m_exchange.handOverPrimary({});
    TransferLimits limits = m_limits;
    limits.stall = std::min(limits.stall, primaryStall); // The user is waiting for it.
    m_primaryTransfer =
        std::make_unique<SelectionTransfer>(m_connection.get(), *m_atoms, m_root, XCB_ATOM_PRIMARY,
                                            xcb_timestamp_t(XCB_CURRENT_TIME), limits);
}

void ClipboardThread::completePrimaryTransfer() {
    const TransferResult result = m_primaryTransfer->takeResult();
    m_primaryTransfer.reset();
    m_exchange.handOverPrimary(result.secret ? QString() : plainText(result.item));
}

void ClipboardThread::carryOut(const ClipboardCommand& command, xcb_timestamp_t time) {
    using Kind = ClipboardCommand::Kind;
    if (command.kind == Kind::offerAsPrimary)
        return m_primaryServer->own(command.content, time);
    if (command.kind == Kind::expectReader)
        return expectReader(command.window);
    if (command.kind == Kind::readPrimary)
        return readPrimary(command.window);
    write(command, time);
}

/// What we only keep alive for a program that has exited is that program's copy, not ours.
void ClipboardThread::write(const ClipboardCommand& command, xcb_timestamp_t time) {
    const bool isOurs = m_server->isOwner() && !m_lastForeign;
    if (command.condition == ClipboardCommand::Condition::whileOurs && !isOurs)
        return;
    abandonTransfer(overtakenReason);
    m_lastForeign.reset();
    m_lastWrite = command.write;
    if (command.kind == ClipboardCommand::Kind::own)
        m_server->own(command.content, time);
    else
        m_server->giveUp(m_ownClearTime = time);
}

} // namespace quorvel
