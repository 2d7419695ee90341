#include "ui/editor/EditorPanel.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace quorvel {

namespace {

struct CaseName {
    EditCaseMode mode;
    const char* key;
};

constexpr CaseName caseNames[] = {
    {EditCaseMode::original, "menu.pasteWithEdit.case.original"},
    {EditCaseMode::lower, "menu.pasteWithEdit.case.lower"},
    {EditCaseMode::upper, "menu.pasteWithEdit.case.upper"},
};
static_assert(std::size(caseNames) == editCaseModes.size());

constexpr int margin = 20;
constexpr int gap = 12;
constexpr qreal titleScale = 1.3;

constexpr float edgeOpacity = 0.3F;
constexpr int blanksPerTab = 8;

/// Of the screen, on one that is too small for the usual size.
constexpr qreal mostOfScreen = 0.95;

} // namespace

EditorPanel::EditorPanel(const EditBeforePasteState& state, const StringTable& strings,
                         Pasteboard& pasteboard)
    : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_strings(strings)
    , m_state(state)
    , m_editorText(state.text)
    , m_text(pasteboard, m_editorText)
    , m_counts(strings, [this] { return m_editorText.read(*m_text.document()); }) {
    setWindowTitle(text("menu.pasteWithEdit.title"));
    setSizeGripEnabled(true);
    setUpText(state);
    setUpChoices(state);
    layOut();
    setUpKeys();
}

void EditorPanel::setUpText(const EditBeforePasteState& state) {
    m_text.setAccessibleName(text("menu.pasteWithEdit.title"));
    m_text.setTabChangesFocus(true);
    m_text.setTabStopDistance(blanksPerTab * m_text.fontMetrics().horizontalAdvance(u' '));
    m_text.document()->setDocumentMargin(gap / 2.0);
    m_loader.emplace(m_text, m_editorText.shown());
    connect(&m_text, &QPlainTextEdit::textChanged, this,
            [this] { m_counts.noteChange(m_text.document()->characterCount()); });
    m_counts.noteChange(state.text.size());
}

void EditorPanel::setUpChoices(const EditBeforePasteState& state) {
    for (const CaseName& name : caseNames)
        m_case.addItem(text(name.key), int(name.mode));
    m_case.setCurrentIndex(m_case.findData(int(state.caseMode)));
    m_trimCollapse.setText(text("menu.pasteWithEdit.trimCollapse"));
    m_trimCollapse.setChecked(state.trimCollapse);
    m_plainText.setText(text("menu.pasteWithEdit.plainText"));
    m_plainText.setChecked(state.pasteAsPlainText);
}

void EditorPanel::setUpKeys() {
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        const auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | enter), this);
        connect(shortcut, &QShortcut::activated, this, &QDialog::accept);
    }
    m_text.setFocus();
}

void EditorPanel::layOut() {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(gap);
    rows->addLayout(headings());
    rows->addWidget(&m_text, 1);
    rows->addLayout(choices());
    rows->addLayout(actions());
}

QLayout* EditorPanel::headings() {
    auto* title = new QLabel(text("menu.pasteWithEdit.title"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    auto* message = new QLabel(text("menu.pasteWithEdit.message"));
    message->setWordWrap(true);
    message->setForegroundRole(QPalette::PlaceholderText);
    m_counts.setForegroundRole(QPalette::PlaceholderText);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(gap / 3);
    rows->addWidget(title);
    rows->addWidget(message);
    return rows;
}

QLayout* EditorPanel::choices() {
    auto* label = new QLabel(text("menu.pasteWithEdit.case"));
    label->setBuddy(&m_case);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(label);
    row->addWidget(&m_case);
    row->addSpacing(gap);
    row->addWidget(&m_trimCollapse);
    if (m_state.supportsRichPaste) {
        row->addSpacing(gap);
        row->addWidget(&m_plainText);
    }
    row->addStretch();
    return row;
}

QLayout* EditorPanel::actions() {
    auto* buttons = new QDialogButtonBox;
    QPushButton* paste = buttons->addButton(text("action.paste"), QDialogButtonBox::AcceptRole);
    buttons->addButton(text("action.cancel"), QDialogButtonBox::RejectRole);
    paste->setDefault(true);
    paste->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(&m_counts, 1);
    row->addWidget(buttons);
    return row;
}

EditBeforePasteState EditorPanel::edited() const {
    EditBeforePasteState state = m_state;
    state.text = m_editorText.read(*m_text.document());
    state.caseMode = EditCaseMode(m_case.currentData().toInt());
    state.trimCollapse = m_trimCollapse.isChecked();
    state.pasteAsPlainText = m_plainText.isChecked();
    return state;
}

void EditorPanel::present(QPoint offset) {
    placeAt(offset);
    show();
    raise();
    activateWindow();
}

void EditorPanel::placeAt(QPoint offset) {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    const QRect place = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    resize(usualSize.boundedTo(place.size() * mostOfScreen));
    move(place.center() - rect().center() + offset);
}

void EditorPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_dragStart = event->position().toPoint();
    windowHandle()->startSystemMove();
}

void EditorPanel::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton))
        move(event->globalPosition().toPoint() - m_dragStart);
}

/// An edge, since there is no frame.
void EditorPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(edgeOpacity);
    painter.setPen(edge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace quorvel
