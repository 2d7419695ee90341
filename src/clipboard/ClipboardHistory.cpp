#include "clipboard/ClipboardHistory.h"

#include <algorithm>

namespace quorvel {

namespace {

qsizetype contentBytes(const RecentClipboardEntry& entry) {
    return entry.text.size() * qsizetype(sizeof(QChar)) + entry.imagePNGData.size();
}

qsizetype payloadBytes(const RecentClipboardEntry& entry) {
    qsizetype bytes = 0;
    for (const ClipboardSnapshotItem& item : entry.payloadItems)
        for (const PasteboardRepresentation& representation : item.payloadByType)
            bytes += representation.data.size();
    return bytes;
}

} // namespace

ClipboardHistory::ClipboardHistory(Preferences& preferences, const Clock& clock)
    : m_preferences(preferences)
    , m_clock(clock)
    , m_pins(preferences) {}

qsizetype ClipboardHistory::indexOf(const QUuid& id) const {
    const auto found = std::find_if(m_recentClipboard.cbegin(), m_recentClipboard.cend(),
                                    [&](const auto& entry) { return entry.id == id; });
    return found == m_recentClipboard.cend() ? -1 : found - m_recentClipboard.cbegin();
}

const RecentClipboardEntry* ClipboardHistory::entry(const QUuid& id) const {
    const qsizetype index = indexOf(id);
    return index < 0 ? nullptr : &m_recentClipboard.at(index);
}

void ClipboardHistory::restore(QList<RecentClipboardEntry> entries) {
    m_recentClipboard.clear();
    for (RecentClipboardEntry& entry : entries) {
        const bool isKnown = std::any_of(
            m_recentClipboard.cbegin(), m_recentClipboard.cend(),
            [&](const auto& known) { return isSameClip(known, entry.text, entry.imagePNGData); });
        if (isKnown)
            continue;
        applyRememberedPin(entry);
        m_recentClipboard.append(std::move(entry));
    }
    trim();
}

void ClipboardHistory::insert(const ClipboardCapture& capture) {
    dropExpiredPins();
    const auto older = takeSame(capture);
    RecentClipboardEntry entry;
    entry.id = QUuid::createUuid();
    entry.text = capture.text;
    entry.payloadItems = capture.payloadItems;
    entry.imagePNGData = capture.imagePNGData;
    entry.autoTags = capture.autoTags;
    entry.sourceAppName = capture.sourceAppName;
    entry.sourceAppBundleIdentifier = capture.sourceAppBundleIdentifier;
    entry.copiedAt = m_clock.now();
    if (older) {
        entry.pinned = older->pinned;
        entry.pinnedUntil = older->pinnedUntil;
        entry.usageCount = older->usageCount;
    }
    if (!entry.pinned)
        applyRememberedPin(entry);
    m_recentClipboard.prepend(entry);
    trim();
    emit entryPut(entry);
    emit entryCaptured(entry);
    emit changed();
}

std::optional<RecentClipboardEntry> ClipboardHistory::takeSame(const ClipboardCapture& capture) {
    std::optional<RecentClipboardEntry> newest;
    m_recentClipboard.removeIf([&](const RecentClipboardEntry& entry) {
        const bool isSame = isSameClip(entry, capture.text, capture.imagePNGData);
        if (isSame && !newest)
            newest = entry;
        return isSame;
    });
    return newest;
}

void ClipboardHistory::applyRememberedPin(RecentClipboardEntry& entry) const {
    if (m_pins.areNone())
        return;
    const QString key = identityKey(entry);
    if (!m_pins.isPinned(key))
        return;
    entry.pinned = true;
    entry.pinnedUntil = m_pins.expiry(key);
}

void ClipboardHistory::bump(const RecentClipboardEntry& used) {
    const RecentClipboardEntry* present = entry(used.id);
    RecentClipboardEntry top = present ? *present : used;
    takeSame({.text = top.text, .imagePNGData = top.imagePNGData});
    ++top.usageCount;
    m_recentClipboard.prepend(top);
    trim();
    emit entryPut(m_recentClipboard.constFirst());
    emit changed();
}

void ClipboardHistory::pin(const QUuid& id) {
    setPin(id, true, std::nullopt);
}

void ClipboardHistory::togglePin(const QUuid& id) {
    if (const RecentClipboardEntry* found = entry(id))
        setPin(id, !found->pinned, std::nullopt);
}

void ClipboardHistory::pinFor(const QUuid& id, std::chrono::seconds span) {
    setPin(id, true, m_clock.now() + span);
}

void ClipboardHistory::setPin(const QUuid& id, bool pinned, std::optional<Date> until) {
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    RecentClipboardEntry& entry = m_recentClipboard[index];
    entry.pinned = pinned;
    entry.pinnedUntil = until;
    const RecentClipboardEntry changedEntry = entry;
    const QString key = identityKey(entry);
    if (pinned)
        m_pins.pin(key, until);
    else
        m_pins.unpin(key);
    trim();
    emit entryChanged(changedEntry);
    emit changed();
}

void ClipboardHistory::remove(const QUuid& id) {
    const qsizetype index = indexOf(id);
    if (index < 0)
        return;
    const RecentClipboardEntry entry = m_recentClipboard.takeAt(index);
    const QString key = identityKey(entry);
    if (entry.pinned)
        m_pins.unpin(key);
    emit entryRemoved(key);
    emit changed();
}

void ClipboardHistory::dropExpiredPins() {
    const Date now = m_clock.now();
    const auto lapsed = [now](const RecentClipboardEntry& entry) {
        return entry.pinnedUntil && *entry.pinnedUntil < now;
    };
    if (std::none_of(m_recentClipboard.cbegin(), m_recentClipboard.cend(), lapsed))
        return;
    for (RecentClipboardEntry& entry : m_recentClipboard)
        if (lapsed(entry))
            dropExpiredPin(entry);
    trim();
    emit changed();
}

void ClipboardHistory::dropExpiredPin(RecentClipboardEntry& entry) {
    entry.pinned = false;
    entry.pinnedUntil.reset();
    m_pins.unpin(identityKey(entry));
    emit entryChanged(entry);
}

void ClipboardHistory::trim() {
    trimCount();
    trimContent();
    trimPayloads();
}

bool ClipboardHistory::survivesTrimming(const RecentClipboardEntry& entry) const {
    return entry.pinned || (m_pins.areInFolders() && m_pins.isPinnedInFolder(identityKey(entry)));
}

void ClipboardHistory::trimCount() {
    const qsizetype most = m_preferences.historyStorageCount();
    for (qsizetype i = m_recentClipboard.size() - 1; i >= most; --i)
        if (!survivesTrimming(m_recentClipboard.at(i)))
            m_recentClipboard.removeAt(i);
}

void ClipboardHistory::trimContent() {
    qsizetype bytes = 0;
    for (const RecentClipboardEntry& entry : std::as_const(m_recentClipboard))
        bytes += contentBytes(entry);
    for (qsizetype i = m_recentClipboard.size() - 1; i > 0 && bytes > mostContentBytes; --i) {
        if (survivesTrimming(m_recentClipboard.at(i)))
            continue;
        bytes -= contentBytes(m_recentClipboard.at(i));
        m_recentClipboard.removeAt(i);
    }
}

void ClipboardHistory::trimPayloads() {
    qsizetype bytes = 0;
    for (qsizetype i = 0; i < m_recentClipboard.size(); ++i) {
        bytes += payloadBytes(m_recentClipboard.at(i));
        if (i > 0 && bytes > mostPayloadBytes && !m_recentClipboard.at(i).payloadItems.isEmpty())
            m_recentClipboard[i].payloadItems.clear();
    }
}

} // namespace quorvel
