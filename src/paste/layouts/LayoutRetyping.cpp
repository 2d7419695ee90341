#include "paste/layouts/LayoutRetyping.h"

namespace quorvel {

void LayoutRetyping::retype() {
    m_parts.selection.take([this](const SelectedTextResult& selected) { retype(selected); });
}

void LayoutRetyping::retype(const SelectedTextResult& selected) {
    using Outcome = SelectedTextResult::Outcome;
    if (selected.outcome == Outcome::taken)
        retype(selected.text);
    else if (selected.outcome == Outcome::focusElsewhere)
        emit noSelection(selected.outcome);
    else if (isGoingOn())
        goOn();
    else
        retype(lastCopied());
}

void LayoutRetyping::goOn() {
    m_parts.selection.takeTyped(m_lastValue, [this](const SelectedTextResult& selected) {
        if (selected.outcome == SelectedTextResult::Outcome::taken)
            retype(selected.text);
        else
            emit noSelection(selected.outcome);
    });
}

void LayoutRetyping::retype(const QString& text) {
    const auto variant = m_parts.cycle.next(text);
    if (!variant)
        return emit impossible();
    m_lastTarget = m_parts.selection.source();
    m_lastCopied = lastCopied();
    m_lastValue = variant->value;
    m_parts.pasteEngine.replaceSelection(variant->value, m_lastTarget);
    m_parts.layouts.activate(variant->targetLayoutID);
}

/// Nothing new was copied since the last paste, and the user is still in the same program.
bool LayoutRetyping::isGoingOn() const {
    const auto& target = m_parts.selection.source();
    return target && m_lastTarget && target->window == m_lastTarget->window &&
           lastCopied() == m_lastCopied;
}

QString LayoutRetyping::lastCopied() const {
    const QString text = m_parts.pasteboard.string();
    if (!text.isEmpty())
        return text;
    for (const RecentClipboardEntry& entry : m_parts.history.recentClipboard())
        if (!entry.isImage())
            return entry.text;
    return {};
}

} // namespace quorvel
