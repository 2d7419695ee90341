#include "paste/PasteDelivery.h"

#include <QPointer>

namespace quorvel {

PasteDelivery::PasteDelivery(Pasteboard& pasteboard, PasteboardWatcher& watcher,
                             FocusTracker& focus, Workspace& workspace, KeyPoster& keys,
                             MainQueue& mainQueue)
    : m_pasteboard(pasteboard)
    , m_watcher(watcher)
    , m_focus(focus)
    , m_workspace(workspace)
    , m_keys(keys)
    , m_mainQueue(mainQueue) {
    connect(&m_pasteboard, &Pasteboard::fetched, this, [this] {
        ++m_counts.fetched;
        mark(&Delivery::isFetched);
    });
    connect(&m_pasteboard, &Pasteboard::arrivedLate, this, [this](const PasteboardContent& late) {
        if (m_current && m_current->written != 0) // What our write has taken from the clipboard.
            m_current->before = late.items;
    });
}

void PasteDelivery::deliver(const QList<ClipboardSnapshotItem>& items, Afterwards afterwards) {
    ++m_counts.asked;
    m_waiting.push_back({items, afterwards});
    if (!m_current)
        startNext();
}

void PasteDelivery::startNext() {
    if (m_waiting.empty())
        return;
    m_current = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_current->before = m_pasteboard.items();
    write(m_current->items);
    m_current->written = m_pasteboard.changeCount();
    if (!mayPressKeys())
        return finish(); // The user pastes by hand, and needs the content there.
    m_restoreTimer =
        m_mainQueue.after(restoreDelay, this, [this] { mark(&Delivery::isRestoreDue); });
    pressKeys();
}

void PasteDelivery::write(const QList<ClipboardSnapshotItem>& items) {
    m_watcher.noteChangeCount();
    m_watcher.markOwnWrite(m_pasteboard.write(items));
}

bool PasteDelivery::mayPressKeys() {
    const bool isTrusted = m_keys.isTrusted();
    const bool wasShown = std::exchange(m_hasShownPastePermissionAlert, !isTrusted);
    if (!isTrusted && !wasShown)
        emit permissionMissing();
    return isTrusted;
}

void PasteDelivery::pressKeys() {
    std::optional<FocusTarget> target = m_focus.target();
    if (target && !m_workspace.isRunning(*target))
        target.reset();
    if (target)
        m_workspace.activate(*target);
    m_mainQueue.after(target ? targetedDelay : untargetedDelay, this, [this, target] {
        m_keys.postPaste(target, [self = QPointer(this)](PostOutcome outcome) {
            if (self)
                self->keysDone(outcome);
        });
    });
}

void PasteDelivery::keysDone(PostOutcome outcome) {
    if (outcome == PostOutcome::posted) {
        ++m_counts.posted;
        m_patience = m_mainQueue.after(fetchPatience, this, [this] { mark(&Delivery::isFetched); });
        mark(&Delivery::arePosted);
    } else {
        finish();
    }
    emit keysPosted(outcome);
}

void PasteDelivery::mark(bool Delivery::*step) {
    if (!m_current)
        return;
    (*m_current).*step = true;
    advance();
}

/// What was there before must not come back until the keys have told the target to fetch.
void PasteDelivery::advance() {
    Delivery& current = *m_current;
    const bool restores = current.afterwards == Afterwards::whatWasBefore;
    if (restores && current.isRestoreDue && current.arePosted && !current.isRestored)
        restore();
    if (current.arePosted && current.isFetched && (!restores || current.isRestored))
        finish();
}

/// Whatever was copied meanwhile is kept instead, even if it is still arriving.
void PasteDelivery::restore() {
    m_current->isRestored = true;
    if (m_pasteboard.changeCount() != m_current->written)
        return;
    m_watcher.noteChangeCount();
    if (const auto count = m_pasteboard.replaceOwnWrite(m_current->before))
        m_watcher.markOwnWrite(*count);
}

void PasteDelivery::finish() {
    m_restoreTimer.cancel();
    m_patience.cancel();
    m_current.reset();
    startNext();
}

} // namespace quorvel
