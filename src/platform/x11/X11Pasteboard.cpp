#include "platform/x11/X11Pasteboard.h"

#include "platform/desktop/ClipboardImage.h"
#include "platform/desktop/ClipboardText.h"
#include "platform/x11/ClipboardExchange.h"
#include "platform/x11/ClipboardThread.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <thread>

namespace quorvel {

namespace {

/// The selection holds one item: further ones add the types that the first one lacks.
ClipboardSnapshotItem merged(const QList<ClipboardSnapshotItem>& items) {
    ClipboardSnapshotItem whole;
    for (const ClipboardSnapshotItem& item : items)
        for (const PasteboardRepresentation& representation : item.payloadByType) {
            const bool present =
                std::any_of(whole.payloadByType.cbegin(), whole.payloadByType.cend(),
                            [&](const auto& old) { return old.type == representation.type; });
            if (!present)
                whole.payloadByType.append(representation);
        }
    return whole;
}

ClipboardCommand writeOf(const QList<ClipboardSnapshotItem>& items) {
    using Kind = ClipboardCommand::Kind;
    const ClipboardSnapshotItem content = merged(items);
    const Kind kind = content.payloadByType.isEmpty() ? Kind::clear : Kind::own;
    return {.kind = kind, .content = content};
}

} // namespace

/// The thread and what runs on it.
class X11Pasteboard::Worker {
public:
    Worker(ClipboardExchange& exchange, int wakeFd, TransferLimits limits)
        : m_clipboard(exchange, wakeFd, limits) {}

    ~Worker() {
        if (m_thread.joinable())
            m_thread.join();
    }

    bool start() {
        if (!m_clipboard.connect())
            return false;
        m_thread = std::thread([this] { m_clipboard.run(); });
        return true;
    }

private:
    ClipboardThread m_clipboard;
    std::thread m_thread;
};

X11Pasteboard::X11Pasteboard(QObject* parent, TransferLimits limits)
    : m_wakeFd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    setParent(parent);
    m_exchange = std::make_unique<ClipboardExchange>(
        [this] {
            QMetaObject::invokeMethod(
                this, [this] { receive(); }, Qt::QueuedConnection);
        },
        [this] { wakeThread(); });
    m_worker = std::make_unique<Worker>(*m_exchange, m_wakeFd, limits);
    m_connected = m_worker->start();
}

X11Pasteboard::~X11Pasteboard() {
    m_exchange->post({.kind = ClipboardCommand::Kind::stop});
    m_worker.reset();
    m_exchange.reset();
    ::close(m_wakeFd);
}

void X11Pasteboard::wakeThread() const {
    const uint64_t one = 1;
    // A full counter wakes the thread as well, so a failed write loses nothing.
    [[maybe_unused]] const auto written = ::write(m_wakeFd, &one, sizeof one);
}

QList<ClipboardSnapshotItem> X11Pasteboard::items() const {
    if (m_item.payloadByType.isEmpty())
        return {};
    return {m_item};
}

qint64 X11Pasteboard::write(const QList<ClipboardSnapshotItem>& items) {
    takeContents();
    ClipboardCommand command = writeOf(items);
    command.write = ++m_writes;
    m_exchange->post(command);
    return hold(command.content);
}

/// It keeps the number of the write that it replaces: a copy that came after that one is newer.
std::optional<qint64> X11Pasteboard::replaceOwnWrite(const QList<ClipboardSnapshotItem>& items) {
    takeContents();
    if (!m_isOwn)
        return std::nullopt;
    ClipboardCommand command = writeOf(items);
    command.write = m_writes;
    command.condition = ClipboardCommand::Condition::whileOurs;
    m_exchange->post(command);
    return hold(command.content);
}

qint64 X11Pasteboard::hold(const ClipboardSnapshotItem& item) {
    m_isOwn = true;
    m_item = item;
    m_text = plainText(m_item);
    m_imagePng = ownPng(m_item);
    ++m_changeCount;
    QMetaObject::invokeMethod(
        this, [this] { emit changed(); }, Qt::QueuedConnection);
    return m_changeCount;
}

PasteboardActivity X11Pasteboard::activity() const {
    return m_exchange->activity();
}

bool X11Pasteboard::isArriving() const {
    return m_exchange->isArriving();
}

void X11Pasteboard::offerAsPrimary() {
    if (m_item.payloadByType.isEmpty())
        return;
    m_exchange->post({.kind = ClipboardCommand::Kind::offerAsPrimary, .content = m_item});
}

void X11Pasteboard::expectReader(quint32 window) {
    m_exchange->post({.kind = ClipboardCommand::Kind::expectReader, .window = window});
}

void X11Pasteboard::readPrimary(quint32 window, std::function<void(const QString&)> done) {
    m_primaryReaders.push_back(std::move(done));
    m_exchange->post({.kind = ClipboardCommand::Kind::readPrimary, .window = window});
}

bool X11Pasteboard::isSettled() const {
    return m_exchange->isSettled();
}

void X11Pasteboard::receive() {
    takeContents();
    for (int fetches = m_exchange->takeFetches(); fetches > 0; --fetches)
        emit fetched();
    for (const QString& text : m_exchange->takePrimaryTexts()) {
        const auto done = std::move(m_primaryReaders.front());
        m_primaryReaders.pop_front();
        done(text);
    }
    if (m_connected && m_exchange->isConnectionLost()) {
        m_connected = false;
        emit connectionLost();
    }
}

void X11Pasteboard::takeContents() {
    while (const auto handover = m_exchange->takeHandover())
        take(*handover);
}

/// What was copied before our newest write is no longer what the clipboard holds.
void X11Pasteboard::take(const ClipboardHandover& handover) {
    if (handover.afterWrite < m_writes) {
        if (!handover.wasThereAtStart && !handover.item.payloadByType.isEmpty())
            emit arrivedLate({{handover.item}, handover.text, handover.imagePng});
        return;
    }
    m_isOwn = false;
    m_item = handover.item;
    m_text = handover.text;
    m_imagePng = handover.imagePng;
    if (handover.wasThereAtStart)
        return;
    ++m_changeCount;
    emit changed();
}

} // namespace quorvel
