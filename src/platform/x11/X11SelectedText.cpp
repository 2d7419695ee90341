#include "platform/x11/X11SelectedText.h"

#include "foundation/Text.h"

namespace quorvel {

namespace {

using Outcome = SelectedTextResult::Outcome;

SelectedTextResult resultOf(const QString& text) {
    return {text.isEmpty() ? Outcome::nothingSelected : Outcome::taken, text};
}

/// Of keys that were not posted.
Outcome outcomeOf(PostOutcome outcome) {
    return outcome == PostOutcome::focusElsewhere ? Outcome::focusElsewhere : Outcome::unavailable;
}

} // namespace

X11SelectedText::X11SelectedText(X11Connection& connection, X11Pasteboard& pasteboard,
                                 X11KeyPoster& keys, MainQueue& queue)
    : m_pasteboard(pasteboard)
    , m_keys(keys)
    , m_queue(queue)
    , m_windows(connection) {}

void X11SelectedText::take(const std::optional<FocusTarget>& target, Done done) {
    const xcb_window_t focus = m_windows.inputFocus();
    if (copyChordFor(m_windows.classOf(m_windows.topWindow(focus))))
        pressCopyKeys(target, done);
    else
        readPrimary(focus, done);
}

/// In a text that runs from right to left the arrow keys do, too.
void X11SelectedText::takeTyped(const std::optional<FocusTarget>& target, const QString& text,
                                Done done) {
    const qsizetype characters = characterCount(text);
    if (characters == 0 || characters > mostTypedCharacters)
        return done({});
    const bool isLeftward = !text.isRightToLeft();
    const auto back = isLeftward ? CaretKeys::selectLeft : CaretKeys::selectRight;
    const auto forth = isLeftward ? CaretKeys::right : CaretKeys::left;
    const auto check = [this, target, text, forth, done](const SelectedTextResult& selected) {
        if (selected.outcome != Outcome::taken || selected.text == text)
            return done(selected);
        m_keys.postCaretKeys(target, forth, 1, [done](PostOutcome) {
            done({Outcome::nothingSelected, {}});
        });
    };
    m_keys.postCaretKeys(target, back, int(characters), [=, this](PostOutcome outcome) {
        outcome == PostOutcome::posted ? pressCopyKeys(target, check)
                                       : done({outcomeOf(outcome), {}});
    });
}

void X11SelectedText::readPrimary(xcb_window_t focus, const Done& done) {
    m_pasteboard.readPrimary(focus, [done](const QString& text) { done(resultOf(text)); });
}

void X11SelectedText::pressCopyKeys(const std::optional<FocusTarget>& target, const Done& done) {
    m_keys.postCopy(target, [this, done, count = m_pasteboard.changeCount()](PostOutcome outcome) {
        if (outcome == PostOutcome::posted)
            return awaitCopy(count, done);
        done({outcomeOf(outcome), {}});
    });
}

/// A program with nothing selected leaves the clipboard alone.
struct X11SelectedText::Waiting {
    WorkItem timeout;
    QMetaObject::Connection change;
};

void X11SelectedText::awaitCopy(qint64 countBefore, const Done& done) {
    if (m_pasteboard.changeCount() != countBefore && !m_pasteboard.holdsOwnWrite())
        return done(resultOf(m_pasteboard.string()));
    const auto waiting = std::make_shared<Waiting>();
    const auto finish = [waiting, done](const QString& text) {
        std::exchange(waiting->timeout, {}).cancel(); // It holds this function, and so itself.
        QObject::disconnect(waiting->change);
        done(resultOf(text));
    };
    // What has been copied by then arrives or is given up: transfers have limits of their own.
    waiting->timeout = m_queue.every(patience, &m_receiver, [this, finish] {
        if (!m_pasteboard.isArriving())
            finish({});
    });
    waiting->change = QObject::connect(&m_pasteboard, &Pasteboard::changed, &m_receiver, [=, this] {
        if (!m_pasteboard.holdsOwnWrite()) // Put back after an earlier paste, perhaps.
            finish(m_pasteboard.string());
    });
}

} // namespace quorvel
