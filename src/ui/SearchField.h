#pragma once

#include <QLineEdit>
#include <QWidgetAction>

class QWindow;

namespace quorvel {

/// The line edit inside a menu. Every key reaches the menu first, which hands back what is typing.
class SearchField final : public QLineEdit {
    Q_OBJECT

public:
    enum class Submenu { closed, open };

    explicit SearchField(QWidget* parent);

    /// Shows another text without telling it as a change by the user.
    void showText(const QString& text);

    /// Takes a press that edits the text; false for one that drives the menu.
    bool take(QKeyEvent& press, Submenu submenu);

signals:
    void changedByUser(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
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
    SearchRow(QObject* parent, const QIcon& magnifier);

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
