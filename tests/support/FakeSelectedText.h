#pragma once

#include "FakePasteboard.h"

#include "platform/SelectedText.h"

namespace quorvel {

/// A program with something selected, which copies it when it is asked; answers when told.
class FakeSelectedText final : public SelectedText {
public:
    explicit FakeSelectedText(FakePasteboard& pasteboard)
        : m_pasteboard(pasteboard) {}

    void take(const std::optional<FocusTarget>& target, Done done) override {
        lastTarget = target;
        m_done = std::move(done);
    }

    void takeTyped(const std::optional<FocusTarget>& target, const QString& text,
                   Done done) override {
        lastTarget = target;
        if (!beforeCaret.endsWith(text))
            return done({});
        m_pasteboard.copyFromOutside(text);
        done({SelectedTextResult::Outcome::taken, text});
    }

    /// The program copies what is selected.
    void answer(const QString& selected) {
        m_pasteboard.copyFromOutside(selected);
        std::exchange(m_done, {})({SelectedTextResult::Outcome::taken, selected});
    }

    /// Nothing comes of it, or only something that is no text.
    void refuse(SelectedTextResult::Outcome outcome,
                const QList<ClipboardSnapshotItem>& copied = {}) {
        if (!copied.isEmpty())
            m_pasteboard.copyFromOutside(copied);
        std::exchange(m_done, {})({outcome, {}});
    }

    bool isAsked() const { return bool(m_done); }

    std::optional<FocusTarget> lastTarget;
    QString beforeCaret; ///< What was typed.

private:
    FakePasteboard& m_pasteboard;
    Done m_done;
};

} // namespace quorvel
