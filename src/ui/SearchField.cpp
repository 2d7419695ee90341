#include "ui/SearchField.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScopedValueRollback>

#include <QWindow>
#include <algorithm>
#include <array>

namespace quorvel {

namespace {

constexpr int rowHeight = 40;
constexpr QPoint fieldPlace(10, 6);
constexpr int fieldHeight = 28;

constexpr std::array menuKeys{Qt::Key_Up,  Qt::Key_Down,    Qt::Key_PageUp, Qt::Key_PageDown,
                              Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter};
constexpr std::array caretKeys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End};

template <size_t count>
bool isAmong(const std::array<Qt::Key, count>& keys, int key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

} // namespace

/// Keeps the field in its place, and clicks beside it from the menu, which would take them for a
/// choice.
class SearchContainer final : public QWidget {
public:
    SearchContainer() { setMaximumWidth(mostWideRow); }

    void setLeastWidth(int width) { m_leastWidth = width; }
    QSize sizeHint() const override { return {m_leastWidth, rowHeight}; }

protected:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
    void resizeEvent(QResizeEvent* event) override {
        const QSize size(event->size().width() - 2 * fieldPlace.x(), fieldHeight);
        for (auto* field : findChildren<SearchField*>(Qt::FindDirectChildrenOnly))
            field->setGeometry(QRect(fieldPlace, size));
    }

private:
    int m_leastWidth = leastWideRow;
};

SearchField::SearchField(QWidget* parent, Pasteboard& pasteboard)
    : QLineEdit(parent)
    , m_pasteboard(pasteboard) {
    setAcceptDrops(false);
    setClearButtonEnabled(true);
    setContextMenuPolicy(Qt::NoContextMenu); // A popup over the menu would take its keys.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!m_isShowing)
            emit changedByUser(text);
    });
}

void SearchField::showText(const QString& text) {
    const QScopedValueRollback showing(m_isShowing, true);
    setText(text);
}

bool SearchField::take(QKeyEvent& press, Submenu submenu) {
    const bool movesCaret = !text().isEmpty() && submenu == Submenu::closed;
    if (isAmong(menuKeys, press.key()) || (isAmong(caretKeys, press.key()) && !movesCaret))
        return false;
    if (press.key() == Qt::Key_Escape) {
        const bool hadText = !text().isEmpty();
        clear();
        return hadText;
    }
    if (!(press.modifiers() & (Qt::AltModifier | Qt::MetaModifier)))
        edit(press);
    press.accept();
    return true;
}

/// Keys that delete to an end of the line would leave what they delete on the clipboard.
void SearchField::edit(QKeyEvent& press) {
    if (const auto wanted = clipboardUse(press))
        return use(*wanted);
    if (press.matches(QKeySequence::DeleteCompleteLine))
        return clear();
    if (!press.matches(QKeySequence::DeleteEndOfLine))
        return QLineEdit::keyPressEvent(&press);
    end(true);
    if (hasSelectedText())
        del();
}

void SearchField::use(ClipboardUse use) {
    if (use == ClipboardUse::paste) {
        const QString line = clipboardLine(m_pasteboard);
        if (!line.isEmpty())
            insert(line);
        return;
    }
    if (!hasSelectedText())
        return;
    m_pasteboard.write({textItem(selectedText())});
    if (use == ClipboardUse::cut)
        del();
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

void SearchField::keyReleaseEvent(QKeyEvent* event) {
    event->ignore();
}

void SearchField::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mousePressEvent(event);
}

void SearchField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mouseReleaseEvent(event);
}

SearchRow::SearchRow(QObject* parent, const QIcon& magnifier, Pasteboard& pasteboard)
    : QWidgetAction(parent)
    , m_container(new SearchContainer)
    , m_field(new SearchField(m_container, pasteboard)) {
    m_field->addAction(magnifier, QLineEdit::LeadingPosition);
    setDefaultWidget(m_container);
    setEnabled(false);
}

void SearchRow::setShown(bool isShown) {
    setVisible(isShown);
    m_container->setVisible(isShown);
}

void SearchRow::setLeastWidth(int width) {
    m_container->setLeastWidth(width);
}

/// Without what a widget action does when it changes: its widget stays enabled.
bool SearchRow::event(QEvent* event) {
    return QAction::event(event); // NOLINT(bugprone-parent-virtual-call): on purpose, as said
}

void prepareTextCursor(QWindow* window) {
    window->setCursor(Qt::IBeamCursor);
    window->unsetCursor();
}

} // namespace quorvel
