#include "paste/PasteEngine.h"

namespace quorvel {

namespace {

bool hasType(const ClipboardSnapshotItem& item, const QString& type) {
    return std::any_of(item.payloadByType.cbegin(), item.payloadByType.cend(),
                       [&](const auto& representation) { return representation.type == type; });
}

} // namespace

QList<ClipboardSnapshotItem> pasteboardItems(const RecentClipboardEntry& entry) {
    QList<ClipboardSnapshotItem> items = entry.payloadItems;
    if (items.isEmpty())
        items.append(ClipboardSnapshotItem{});
    ClipboardSnapshotItem& first = items.first();
    if (!entry.text.isEmpty() && !hasType(first, pasteboardTypeString))
        first.payloadByType.append({pasteboardTypeString, entry.text.toUtf8()});
    if (entry.isImage() && !hasType(first, pasteboardTypePng))
        first.payloadByType.append({pasteboardTypePng, entry.imagePNGData});
    return items;
}

PasteEngine::PasteEngine(Pasteboard& pasteboard, PasteboardWatcher& watcher,
                         ClipboardHistory& history, FocusTracker& focus, Workspace& workspace,
                         KeyPoster& keys, MainQueue& mainQueue)
    : m_pasteboard(pasteboard)
    , m_watcher(watcher)
    , m_history(history)
    , m_focus(focus)
    , m_workspace(workspace)
    , m_keys(keys)
    , m_mainQueue(mainQueue) {}

void PasteEngine::pasteRecentSnippet(const QUuid& id) {
    const RecentClipboardEntry* entry = m_history.entry(id);
    if (!entry)
        return;
    write(*entry);
    requestPasteKeystroke();
    m_history.bump(id);
    emit entryPasted(id);
}

void PasteEngine::write(const RecentClipboardEntry& entry) {
    const QList<ClipboardSnapshotItem> items = pasteboardItems(entry);
    m_watcher.noteChangeCount();
    m_watcher.markOwnWrite(m_pasteboard.write(items));
}

void PasteEngine::requestPasteKeystroke() {
    if (!m_keys.isTrusted()) {
        if (!std::exchange(m_hasShownPastePermissionAlert, true))
            emit permissionMissing();
        return;
    }
    m_hasShownPastePermissionAlert = false;
    std::optional<FocusTarget> target = m_focus.target();
    if (target && !m_workspace.isRunning(*target))
        target.reset();
    if (target)
        m_workspace.activate(*target);
    m_mainQueue.after(target ? targetedDelay : untargetedDelay, this,
                      [this, target] { post(target); });
}

void PasteEngine::post(const std::optional<FocusTarget>& target) {
    m_keys.postPaste(target, [self = QPointer(this)](PostOutcome outcome) {
        if (self)
            emit self->keysPosted(outcome);
    });
}

} // namespace quorvel
