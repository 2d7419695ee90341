#include "ui/editor/EditorField.h"

#include "ui/editor/EditorText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

namespace quorvel {

namespace {

struct NamedUse {
    QLatin1String action; ///< As the toolkit calls it in its menu.
    ClipboardUse use;
};

constexpr NamedUse namedUses[] = {
    {QLatin1String("edit-copy"), ClipboardUse::copy},
    {QLatin1String("edit-cut"), ClipboardUse::cut},
    {QLatin1String("edit-paste"), ClipboardUse::paste},
};

/// Asks the display only; what it returns asks its owner when it is looked into.
const QMimeData* toolkitData(QClipboard::Mode mode) {
    return QGuiApplication::clipboard()->mimeData(mode);
}

} // namespace

EditorField::EditorField(Pasteboard& pasteboard, const EditorText& text)
    : m_pasteboard(pasteboard)
    , m_text(text) {}

void EditorField::keyPressEvent(QKeyEvent* event) {
    if (const auto wanted = clipboardUse(*event))
        use(*wanted);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void EditorField::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const NamedUse& named : namedUses) {
        auto* action = menu->findChild<QAction*>(named.action);
        if (!action)
            continue; // A field that cannot be edited offers less.
        action->disconnect();
        connect(action, &QAction::triggered, this, [this, wanted = named.use] { use(wanted); });
    }
    menu->popup(event->globalPos());
}

bool EditorField::canInsertFromMimeData(const QMimeData* source) const {
    if (source == toolkitData(QClipboard::Clipboard))
        return !m_pasteboard.string().isEmpty();
    return QPlainTextEdit::canInsertFromMimeData(source);
}

/// What is dropped, or selected in this program.
void EditorField::insertFromMimeData(const QMimeData* source) {
    if (source == toolkitData(QClipboard::Clipboard))
        return use(ClipboardUse::paste);
    const bool isForeign = source == toolkitData(QClipboard::Selection) &&
                           !QGuiApplication::clipboard()->ownsSelection();
    if (!isForeign)
        QPlainTextEdit::insertFromMimeData(source);
}

void EditorField::use(ClipboardUse use) {
    if (use == ClipboardUse::paste)
        return pasteText();
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return;
    m_pasteboard.write({textItem(m_text.selected(cursor))});
    if (use == ClipboardUse::cut && !isReadOnly())
        cursor.removeSelectedText();
}

void EditorField::pasteText() {
    if (isReadOnly())
        return;
    insertPlainText(m_pasteboard.string());
    ensureCursorVisible();
}

} // namespace quorvel
