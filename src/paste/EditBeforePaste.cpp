#include "paste/EditBeforePaste.h"

#include "paste/CopyTools.h"

#include <algorithm>

namespace quorvel {

namespace {

/// The names that programs give to plain text besides "text/plain" and its charsets.
constexpr std::array<QStringView, 5> plainTextTypes{u"UTF8_STRING", u"STRING", u"TEXT",
                                                    u"COMPOUND_TEXT", u"C_STRING"};

bool isPlainText(const PasteboardRepresentation& representation) {
    const QString& type = representation.type;
    return type.startsWith(u"text/plain", Qt::CaseInsensitive) ||
           std::find(plainTextTypes.begin(), plainTextTypes.end(), type) != plainTextTypes.end();
}

QString inCase(const QString& text, EditCaseMode mode) {
    switch (mode) {
    case EditCaseMode::lower:
        return text.toLower();
    case EditCaseMode::upper:
        return text.toUpper();
    case EditCaseMode::original:
        break;
    }
    return text;
}

} // namespace

bool hasRichForms(const QList<ClipboardSnapshotItem>& items) {
    return std::any_of(items.begin(), items.end(), [](const ClipboardSnapshotItem& item) {
        return !std::all_of(item.payloadByType.begin(), item.payloadByType.end(), isPlainText);
    });
}

EditBeforePasteState editorState(const EditRequest& request) {
    EditBeforePasteState state;
    state.text = request.text;
    state.supportsRichPaste = hasRichForms(request.items);
    return state;
}

QString resultText(const EditBeforePasteState& state) {
    return inCase(state.trimCollapse ? trimmedAndCollapsed(state.text) : state.text,
                  state.caseMode);
}

QList<ClipboardSnapshotItem> resultItems(const EditRequest& request,
                                         const EditBeforePasteState& state) {
    const QString text = resultText(state);
    const bool keepsForms = !state.pasteAsPlainText && !request.items.isEmpty();
    if (keepsForms && text == request.text)
        return request.items;
    return {textItem(text)};
}

} // namespace quorvel
