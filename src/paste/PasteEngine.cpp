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

void PasteEngine::pasteEntry(const RecentClipboardEntry& entry, PasteOption option) {
    const bool needsText = option == PasteOption::plainText || option == PasteOption::withEdit;
    if (entry.isImage() && needsText)
        return;
    if (option == PasteOption::withEdit)
        return requestEdit(entry);
    const RecentClipboardEntry pastedEntry = entry; // Using it moves it in the history.
    paste(needsText ? QList{textItem(pastedEntry.text)} : pasteboardItems(pastedEntry), option);
    emit pasted(pastedEntry.text);
    m_history.bump(pastedEntry.id);
}

void PasteEngine::requestEdit(const RecentClipboardEntry& entry) {
    const QList<ClipboardSnapshotItem> forms =
        entry.payloadItems.isEmpty() ? entry.payloadItems : pasteboardItems(entry);
    emit editRequested(
        {entry.text, forms, PasteOption::normal, [this, id = entry.id] { m_history.bump(id); }});
}

void PasteEngine::pasteText(const QString& text, PasteOption option,
                            const std::function<void()>& used) {
    if (option == PasteOption::withEdit)
        return emit editRequested({text, {}, PasteOption::normal, used});
    paste({textItem(text)}, option);
    emit pasted(text);
    if (used)
        used();
}

void PasteEngine::pasteEdited(const EditRequest& request, const EditBeforePasteState& state) {
    paste(resultItems(request, state), request.option);
    emit pasted(resultText(state));
    if (request.used)
        request.used();
}

void PasteEngine::paste(const QList<ClipboardSnapshotItem>& items, PasteOption option) {
    if (option != PasteOption::keepClipboard) {
        write(items);
        requestPasteKeystroke();
        return;
    }
    const QList<ClipboardSnapshotItem> before = m_pasteboard.items();
    write(items);
    requestPasteKeystroke();
    if (m_keys.isTrusted()) // else the user pastes by hand, and needs the clip there
        restoreLater(before);
}

/// Whatever was copied meanwhile is kept instead.
void PasteEngine::restoreLater(const QList<ClipboardSnapshotItem>& before) {
    m_mainQueue.after(restoreDelay, this, [this, before, written = m_pasteboard.changeCount()] {
        if (m_pasteboard.changeCount() == written)
            write(before);
    });
}

void PasteEngine::write(const QList<ClipboardSnapshotItem>& items) {
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
