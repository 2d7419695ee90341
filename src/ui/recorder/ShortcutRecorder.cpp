#include "ui/recorder/ShortcutRecorder.h"

#include "menu/KeyNames.h"
#include "paste/ShortcutRules.h"

#include <QBoxLayout>
#include <QEvent>

namespace quorvel {

namespace {

constexpr int gap = 4;

} // namespace

ShortcutRecorder::ShortcutRecorder(const Parts& parts, const SnippetShortcut& byDefault,
                                   QWidget* parent)
    : QWidget(parent)
    , m_strings(parts.strings)
    , m_keys(parts.keys)
    , m_usedBy(parts.usedBy)
    , m_default(byDefault)
    , m_shortcut(byDefault)
    , m_field([this](QKeyEvent& event) { return read(event); })
    , m_message(parts.icons.symbol(QStringLiteral("exclamationmark.triangle"))) {
    setAccessibleName(parts.name);
    setUpReset(parts.icons);
    layOut();
    setFocusProxy(&m_field);
    connect(&m_field, &QAbstractButton::clicked, this, &ShortcutRecorder::toggle);
    connect(&m_field, &ChordField::left, this, &ShortcutRecorder::end);
    connect(&m_reset, &QAbstractButton::clicked, this, [this] { propose(m_default); });
    showShortcut();
}

/// The field goes before the children of a widget do, and tells when it is hidden.
ShortcutRecorder::~ShortcutRecorder() {
    end();
    m_field.disconnect(this);
}

void ShortcutRecorder::setUpReset(const Icons& icons) {
    m_reset.setAutoRaise(true);
    m_reset.setIcon(icons.symbol(QStringLiteral("arrow.uturn.backward")));
    m_reset.setToolTip(m_strings.format(QStringLiteral("recorder.reset"), name(m_default)));
    m_reset.setAccessibleName(m_reset.toolTip());
    QSizePolicy stays = m_reset.sizePolicy();
    stays.setRetainSizeWhenHidden(true);
    m_reset.setSizePolicy(stays);
}

void ShortcutRecorder::layOut() {
    auto* top = new QHBoxLayout;
    top->setSpacing(gap);
    top->addWidget(&m_field, 1);
    top->addWidget(&m_reset);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(gap);
    rows->addLayout(top);
    rows->addWidget(&m_message);
}

void ShortcutRecorder::setShortcut(const SnippetShortcut& shortcut) {
    m_shortcut = shortcut;
    if (!isRecording())
        showShortcut();
}

void ShortcutRecorder::setProblem(const QString& problem) {
    m_problem = problem;
    if (!isRecording())
        showShortcut();
}

void ShortcutRecorder::toggle() {
    isRecording() ? end() : begin();
}

void ShortcutRecorder::begin() {
    emit recordingBegan();
    m_field.setRecording(true);
    showHeld({});
    say(text("recorder.hint"), Tone::quiet);
}

void ShortcutRecorder::end() {
    if (!isRecording())
        return;
    m_field.setRecording(false);
    showShortcut();
    emit recordingEnded();
}

bool ShortcutRecorder::read(QKeyEvent& event) {
    const ChordReading reading =
        event.type() == QEvent::KeyPress ? readPress(event, m_keys) : readRelease(event);
    take(reading);
    return reading.kind != ChordReading::Kind::leave;
}

void ShortcutRecorder::take(const ChordReading& reading) {
    using Kind = ChordReading::Kind;
    switch (reading.kind) {
    case Kind::nothing:
        return;
    case Kind::modifiers:
        return showHeld(reading.held);
    case Kind::cancel:
    case Kind::leave:
        return end();
    case Kind::reset:
        return propose(m_default);
    case Kind::chord:
        return propose(reading.shortcut);
    case Kind::unusable:
        return say(text("recorder.unusable"), Tone::warning);
    }
}

void ShortcutRecorder::propose(const SnippetShortcut& shortcut) {
    if (const QString reason = objection(shortcut); !reason.isEmpty())
        return say(reason, Tone::warning);
    if (shortcut != m_shortcut) {
        m_shortcut = shortcut;
        m_problem.clear();
        emit shortcutRecorded(shortcut);
    }
    end();
    showShortcut();
}

QString ShortcutRecorder::objection(const SnippetShortcut& shortcut) const {
    if (const QString reason = objectionTo(shortcut, m_strings); !reason.isEmpty())
        return reason;
    const QString user = m_usedBy ? m_usedBy(shortcut) : QString();
    return user.isEmpty() ? QString() : m_strings.format(QStringLiteral("recorder.used"), user);
}

void ShortcutRecorder::showHeld(Modifiers held) {
    const QStringList caps = keyEquivalentParts({{}, held}, m_strings);
    m_field.show(caps, caps.isEmpty() ? text("recorder.prompt") : QStringLiteral("…"));
    describe();
}

void ShortcutRecorder::showShortcut() {
    m_field.show(keyEquivalentParts({m_shortcut.key, m_shortcut.modifiers()}, m_strings));
    m_reset.setVisible(m_shortcut != m_default);
    say(m_problem, Tone::warning);
}

void ShortcutRecorder::say(const QString& message, Tone tone) {
    m_message.say(message, tone);
    describe();
}

/// For those who hear the screen: what it is for and the keys; then what can be done, or is wrong.
void ShortcutRecorder::describe() {
    const QString keys = isRecording() ? text("recorder.prompt") : name(m_shortcut);
    m_field.setAccessibleName(accessibleName() + QStringLiteral(": ") + keys);
    m_field.setAccessibleDescription(message().isEmpty() ? text("recorder.start") : message());
}

void ShortcutRecorder::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        end();
    QWidget::changeEvent(event);
}

QString ShortcutRecorder::name(const SnippetShortcut& shortcut) const {
    return keyEquivalentText({shortcut.key, shortcut.modifiers()}, m_strings);
}

} // namespace quorvel
