#pragma once

#include "ui/FieldClipboard.h"

#include <QLineEdit>
#include <QWidgetAction>

class QWindow;

namespace quorvel {

/// The line edit inside a menu. Every key reaches the menu first, which hands back what is typing.
/// What is pasted comes from the pasteboard; the middle button and drops, which could only ask the
/// other program itself, do nothing.
class SearchField final : public QLineEdit {
    Q_OBJECT

public:
    enum class Submenu { closed, open };

    /// `pasteboard` outlives this.
    SearchField(QWidget* parent, Pasteboard& pasteboard);

    /// Shows another text without telling it as a change by the user.
    void showText(const QString& text);

    /// Takes a press that edits the text; false for one that drives the menu.
    bool take(QKeyEvent& press, Submenu submenu);

signals:
    void changedByUser(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void edit(QKeyEvent& press);
    void use(ClipboardUse use);

    Pasteboard& m_pasteboard;
    bool m_isShowing = false;
};

class SearchContainer;

/// Between these widths a row that fills its menu follows it: a search field, a text.
inline constexpr int leastWideRow = 360;
inline constexpr int mostWideRow = 520;

/// The row of a menu that the search field stands in. As an action it is disabled, so that the
/// highlight passes over it; its widget is not.
class SearchRow final : public QWidgetAction {
    Q_OBJECT

public:
    SearchRow(QObject* parent, const QIcon& magnifier, Pasteboard& pasteboard);

    SearchField& field() const { return *m_field; }

    /// The menu would leave the widget where it was.
    void setShown(bool isShown);

    /// The width that the row asks of its menu; it fills the menu then.
    void setLeastWidth(int width);

protected:
    bool event(QEvent* event) override;

private:
    SearchContainer* m_container;
    SearchField* m_field;
};

/// Lets the toolkit find the pointer's look over text before it is needed: it searches many files.
void prepareTextCursor(QWindow* window);

} // namespace quorvel
