#include "paste/layouts/LayoutRetyping.h"

namespace quorvel {

void LayoutRetyping::retype() {
    m_parts.selection.take([this](const SelectedTextResult& selected) {
        const bool isTaken = selected.outcome == SelectedTextResult::Outcome::taken;
        retype(isTaken ? selected.text : lastText());
    });
}

void LayoutRetyping::retype(const QString& text) {
    const auto variant = m_parts.cycle.next(text);
    if (!variant)
        return emit impossible();
    m_parts.pasteEngine.pasteText(variant->value, PasteOption::keepClipboard);
    m_parts.layouts.activate(variant->targetLayoutID);
}

QString LayoutRetyping::lastText() const {
    const QString text = m_parts.pasteboard.string();
    if (!text.isEmpty())
        return text;
    for (const RecentClipboardEntry& entry : m_parts.history.recentClipboard())
        if (!entry.isImage())
            return entry.text;
    return {};
}

} // namespace quorvel
