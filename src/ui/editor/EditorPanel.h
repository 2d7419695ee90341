#pragma once

#include "foundation/StringTable.h"
#include "paste/EditBeforePaste.h"
#include "ui/editor/CountLabel.h"
#include "ui/editor/EditorField.h"
#include "ui/editor/EditorText.h"
#include "ui/editor/TextLoader.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>

#include <optional>

namespace quorvel {

/// A window without a frame in which a text is edited before it is pasted. Accepted when it is to
/// be pasted, rejected when not.
class EditorPanel final : public QDialog {
    Q_OBJECT

public:
    /// `strings` and `pasteboard` outlive this.
    EditorPanel(const EditBeforePasteState& state, const StringTable& strings,
                Pasteboard& pasteboard);

    /// As the user has set it.
    EditBeforePasteState edited() const;

    /// Shows it in the middle of the screen that has the pointer, moved by `offset`, and gives it
    /// the keyboard.
    void present(QPoint offset);

    static constexpr QSize usualSize{864, 500};

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setUpText(const EditBeforePasteState& state);
    void setUpChoices(const EditBeforePasteState& state);
    void setUpKeys();
    void layOut();
    QLayout* headings();
    QLayout* choices();
    QLayout* actions();
    void placeAt(QPoint offset);
    QString text(const char* key) const { return m_strings.text(QString::fromLatin1(key)); }

    const StringTable& m_strings;
    const EditBeforePasteState m_state; ///< As it was in the beginning.
    const EditorText m_editorText;
    EditorField m_text;
    std::optional<TextLoader> m_loader;
    QComboBox m_case;
    QCheckBox m_trimCollapse;
    QCheckBox m_plainText;
    CountLabel m_counts;
    QPoint m_dragStart; ///< In the panel; used where no window manager moves windows.
};

} // namespace quorvel
