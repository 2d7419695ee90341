#pragma once

#include "foundation/StringTable.h"
#include "paste/TextEditor.h"
#include "platform/Pasteboard.h"

#include <QObject>

namespace quorvel {

class EditorPanel;

/// Edits texts in panels, one for each.
class QtTextEditor final : public QObject, public TextEditor {
    Q_OBJECT

public:
    /// `pasteboard` outlives this.
    QtTextEditor(StringTable strings, Pasteboard& pasteboard);
    ~QtTextEditor() override;

    void present(const EditBeforePasteState& state, Done done) override;
    void close() override;

private:
    void finish(EditorPanel* panel, const Done& done);

    const StringTable m_strings;
    Pasteboard& m_pasteboard;
    QList<EditorPanel*> m_panels;
};

} // namespace quorvel
