#include "ui/editor/QtTextEditor.h"

#include "ui/editor/EditorPanel.h"

namespace quorvel {

namespace {

/// Between two panels, so that the one below is seen.
constexpr QPoint step{28, 28};

} // namespace

QtTextEditor::QtTextEditor(StringTable strings, Pasteboard& pasteboard)
    : m_strings(std::move(strings))
    , m_pasteboard(pasteboard) {}

QtTextEditor::~QtTextEditor() {
    close();
}

void QtTextEditor::present(const EditBeforePasteState& state, Done done) {
    auto* panel = new EditorPanel(state, m_strings, m_pasteboard);
    connect(panel, &QDialog::finished, this,
            [this, panel, done = std::move(done)] { finish(panel, done); });
    panel->present(step * int(m_panels.size()));
    m_panels.append(panel);
}

void QtTextEditor::finish(EditorPanel* panel, const Done& done) {
    m_panels.removeOne(panel);
    panel->deleteLater();
    if (panel->result() == QDialog::Accepted)
        done(panel->edited());
    else
        done(std::nullopt);
}

void QtTextEditor::close() {
    while (!m_panels.isEmpty())
        m_panels.constLast()->reject();
}

} // namespace quorvel
