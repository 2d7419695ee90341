#include "platform/x11/ClipboardExchange.h"

namespace quorvel {

ClipboardExchange::ClipboardExchange(std::function<void()> wakeMain,
                                     std::function<void()> wakeThread)
    : m_wakeMain(std::move(wakeMain))
    , m_wakeThread(std::move(wakeThread)) {}

void ClipboardExchange::post(ClipboardCommand command) {
    {
        const std::lock_guard lock(m_mutex);
        m_commands.push_back(std::move(command));
        ++m_unconfirmed;
    }
    m_wakeThread();
}

std::shared_ptr<ClipboardHandover> ClipboardExchange::takeHandover() {
    const std::lock_guard lock(m_mutex);
    if (m_handovers.empty() || !m_handovers.front()->ready)
        return nullptr;
    auto handover = std::move(m_handovers.front());
    m_handovers.pop_front();
    return handover;
}

PasteboardActivity ClipboardExchange::activity() const {
    const std::lock_guard lock(m_mutex);
    return m_activity;
}

bool ClipboardExchange::isArriving() const {
    const std::lock_guard lock(m_mutex);
    return m_isTransferring || !m_handovers.empty();
}

bool ClipboardExchange::isConnectionLost() const {
    const std::lock_guard lock(m_mutex);
    return m_connectionLost;
}

QStringList ClipboardExchange::takePrimaryTexts() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_primaryTexts, {});
}

void ClipboardExchange::handOverPrimary(const QString& text) {
    {
        const std::lock_guard lock(m_mutex);
        m_primaryTexts.append(text);
    }
    m_wakeMain();
}

int ClipboardExchange::takeFetches() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_fetches, 0);
}

bool ClipboardExchange::isSettled() const {
    const std::lock_guard lock(m_mutex);
    return m_unconfirmed == 0;
}

void ClipboardExchange::confirmCommand() {
    const std::lock_guard lock(m_mutex);
    --m_unconfirmed;
}

std::deque<ClipboardCommand> ClipboardExchange::takeCommands() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_commands, {});
}

void ClipboardExchange::setTransferring(bool isTransferring) {
    const std::lock_guard lock(m_mutex);
    m_isTransferring = isTransferring;
}

void ClipboardExchange::handOver(std::shared_ptr<ClipboardHandover> handover) {
    {
        const std::lock_guard lock(m_mutex);
        if (!handover->wasThereAtStart && !handover->item.payloadByType.isEmpty())
            ++m_activity.taken;
        m_handovers.push_back(std::move(handover));
    }
    m_wakeMain();
}

void ClipboardExchange::countSkipped(const QString& reason) {
    const std::lock_guard lock(m_mutex);
    ++m_activity.skipped[reason];
}

void ClipboardExchange::countFailed(const QString& reason) {
    const std::lock_guard lock(m_mutex);
    ++m_activity.failed[reason];
}

void ClipboardExchange::countFetch() {
    {
        const std::lock_guard lock(m_mutex);
        ++m_fetches;
    }
    m_wakeMain();
}

void ClipboardExchange::connectionLost() {
    {
        const std::lock_guard lock(m_mutex);
        m_connectionLost = true;
    }
    m_wakeMain();
}

void ClipboardExchange::markReady(const std::shared_ptr<ClipboardHandover>& handover,
                                  QByteArray imagePng) {
    {
        const std::lock_guard lock(m_mutex);
        handover->imagePng = std::move(imagePng);
        handover->ready = true;
    }
    m_wakeMain();
}

} // namespace quorvel
