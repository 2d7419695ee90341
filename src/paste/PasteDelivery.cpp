#include "paste/PasteDelivery.h"

#include <QPointer>

namespace quorvel {

PasteDelivery::PasteDelivery(Pasteboard& pasteboard, PasteboardWatcher& watcher,
                             FocusTracker& focus, Workspace& workspace, KeyPoster& keys,
                             ClipboardTurns& turns, MainQueue& mainQueue)
    : m_pasteboard(pasteboard)
    , m_watcher(watcher)
    , m_focus(focus)
    , m_workspace(workspace)
    , m_keys(keys)
    , m_turns(turns)
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

void PasteDelivery::deliver(const QList<ClipboardSnapshotItem>& items, Afterwards afterwards,
                            const std::optional<FocusTarget>& target) {
    ++m_counts.asked;
    const Delivery delivery{items, afterwards, target};
    m_turns.ask([self = QPointer(this), delivery] {
        if (self)
            self->start(delivery);
    });
}

void PasteDelivery::start(const Delivery& delivery) {
    m_current = delivery;
    m_current->before = m_pasteboard.items();
    write(m_current->items);
    m_current->written = m_pasteboard.changeCount();
    if (!mayPressKeys())
        return finish(); // The user pastes by hand, and needs the content there.
    if (!isInFront(m_current->target))
        return keysDone(PostOutcome::focusElsewhere);
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

bool PasteDelivery::isInFront(const std::optional<FocusTarget>& target) const {
    const auto& front = m_focus.target();
    return front ? target && front->window == target->window : !target;
}

void PasteDelivery::pressKeys() {
    std::optional<FocusTarget> target = m_current->target;
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
    emit keysPosted(outcome);
    if (outcome == PostOutcome::posted) {
        ++m_counts.posted;
        m_patience = m_mainQueue.after(fetchPatience, this, [this] { mark(&Delivery::isFetched); });
        mark(&Delivery::arePosted);
    } else {
        finish();
    }
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
    m_turns.end();
}

} // namespace quorvel
