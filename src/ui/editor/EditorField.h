#pragma once

#include "ui/FieldClipboard.h"

#include <QPlainTextEdit>

namespace quorvel {

class EditorText;

/// The text area of the editor. Copies, cuts and pastes by the pasteboard; takes nothing that
/// another program has selected, as only that program itself could be asked for it.
class EditorField final : public QPlainTextEdit {
public:
    /// Both outlive this; `text` knows what of the document is the user's.
    EditorField(Pasteboard& pasteboard, const EditorText& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void use(ClipboardUse use);
    void pasteText();

    Pasteboard& m_pasteboard;
    const EditorText& m_text;
};

} // namespace quorvel
