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

PasteEngine::PasteEngine(PasteDelivery& delivery, ClipboardHistory& history)
    : m_delivery(delivery)
    , m_history(history) {}

void PasteEngine::pasteEntry(const RecentClipboardEntry& entry, PasteOption option) {
    const bool isPlainText = option == PasteOption::plainText;
    if (entry.isImage() && isPlainText)
        return;
    if (option == PasteOption::withEdit && !entry.isImage())
        return requestEdit(entry);
    const RecentClipboardEntry pastedEntry = entry; // Using it moves it in the history.
    paste(isPlainText ? QList{textItem(pastedEntry.text)} : pasteboardItems(pastedEntry), option);
    emit pasted(pastedEntry.text);
    m_history.bump(pastedEntry);
}

/// A clip that is deleted while it is edited does not come back.
void PasteEngine::requestEdit(const RecentClipboardEntry& entry) {
    const QList<ClipboardSnapshotItem> forms =
        entry.payloadItems.isEmpty() ? entry.payloadItems : pasteboardItems(entry);
    const bool isInHistory = m_history.entry(entry.id);
    const auto used = [this, entry, isInHistory] {
        if (!isInHistory || m_history.entry(entry.id))
            m_history.bump(entry);
    };
    emit editRequested({entry.text, forms, PasteOption::normal, used});
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

void PasteEngine::replaceSelection(const QString& text, const std::optional<FocusTarget>& target) {
    m_delivery.deliver({textItem(text)}, Afterwards::whatWasBefore, target);
    emit pasted(text);
}

void PasteEngine::pasteEdited(const EditRequest& request, const EditBeforePasteState& state) {
    paste(resultItems(request, state), request.option);
    emit pasted(resultText(state));
    if (request.used)
        request.used();
}

void PasteEngine::paste(const QList<ClipboardSnapshotItem>& items, PasteOption option) {
    const bool keeps = option == PasteOption::keepClipboard;
    m_delivery.deliver(items, keeps ? Afterwards::whatWasBefore : Afterwards::pasted);
}

} // namespace quorvel
