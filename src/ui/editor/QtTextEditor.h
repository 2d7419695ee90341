#pragma once

#include "foundation/StringTable.h"
#include "paste/TextEditor.h"

#include <QObject>

namespace quorvel {

class EditorPanel;

/// Edits texts in panels, one for each.
class QtTextEditor final : public QObject, public TextEditor {
    Q_OBJECT

public:
    explicit QtTextEditor(StringTable strings);
    ~QtTextEditor() override;

    void present(const EditBeforePasteState& state, Done done) override;
    void close() override;

private:
    void finish(EditorPanel* panel, const Done& done);

    const StringTable m_strings;
    QList<EditorPanel*> m_panels;
};

} // namespace quorvel
