#include "ui/recorder/HotKeyForm.h"

#include "paste/ShortcutRules.h"

#include <QGridLayout>

namespace quorvel {

namespace {

constexpr int columnGap = 16;
constexpr int rowGap = 10;

SnippetShortcut defaultOf(const keys::HotKey& key) {
    return {QChar::fromLatin1(key.key), key.modifiers};
}

} // namespace

HotKeyForm::HotKeyForm(const Parts& parts, QWidget* parent)
    : QWidget(parent)
    , m_parts(parts) {
    setAccessibleName(m_parts.strings.text(QStringLiteral("hotKey.title")));
    auto* rows = new QGridLayout(this);
    rows->setHorizontalSpacing(columnGap);
    rows->setVerticalSpacing(rowGap);
    rows->setColumnStretch(1, 1);
    for (const ConfigurableHotKey& hotKey : configurableHotKeys) {
        ShortcutRecorder* recorder = makeRecorder(hotKey);
        auto* label = new QLabel(recorder->accessibleName());
        label->setBuddy(recorder);
        label->setMinimumHeight(recorder->sizeHint().height());
        const int row = rows->rowCount();
        rows->addWidget(label, row, 0, Qt::AlignTop);
        rows->addWidget(recorder, row, 1);
        m_recorders.insert(hotKey.id, recorder);
    }
    rows->setRowStretch(rows->rowCount(), 1);
    showStored();
    showProblems();
    connect(&m_parts.store, &PreferenceStore::changed, this, &HotKeyForm::showStored);
    connect(&m_parts.hotKeys, &GlobalHotKeys::registered, this, &HotKeyForm::showProblems);
}

/// A recording ends with the focus that a window loses when it goes; the hot keys then tell of
/// their return, and nobody is here any more to show it.
HotKeyForm::~HotKeyForm() {
    m_parts.hotKeys.disconnect(this);
    m_parts.store.disconnect(this);
}

ShortcutRecorder* HotKeyForm::makeRecorder(const ConfigurableHotKey& hotKey) {
    auto* recorder = new ShortcutRecorder(
        {m_parts.strings.text(QString::fromLatin1(hotKey.titleKey)), m_parts.strings, m_parts.keys,
         m_parts.icons,
         [this, id = hotKey.id](const SnippetShortcut& shortcut) { return userOf(shortcut, id); }},
        defaultOf(hotKey.preference), this);
    connect(recorder, &ShortcutRecorder::recordingBegan, &m_parts.hotKeys, &GlobalHotKeys::suspend);
    connect(recorder, &ShortcutRecorder::recordingEnded, &m_parts.hotKeys, &GlobalHotKeys::resume);
    connect(recorder, &ShortcutRecorder::shortcutRecorded, this,
            [this, &hotKey](const SnippetShortcut& shortcut) { storeShortcut(hotKey, shortcut); });
    return recorder;
}

void HotKeyForm::storeShortcut(const ConfigurableHotKey& hotKey, const SnippetShortcut& shortcut) {
    if (shortcut == defaultOf(hotKey.preference))
        m_parts.preferences.clear(hotKey.preference);
    else
        m_parts.preferences.set(hotKey.preference, shortcut);
}

void HotKeyForm::showStored() {
    for (const ConfigurableHotKey& hotKey : configurableHotKeys)
        m_recorders.value(hotKey.id)->setShortcut(m_parts.preferences.hotKey(hotKey.preference));
}

void HotKeyForm::showProblems() {
    for (const HotKeyState& state : m_parts.hotKeys.states())
        if (ShortcutRecorder* recorder = m_recorders.value(state.id))
            recorder->setProblem(problemOf(state));
}

QString HotKeyForm::problemOf(const HotKeyState& state) const {
    const StringTable& strings = m_parts.strings;
    if (state.result == HotKeyState::Result::noSuchKey)
        return strings.text(QStringLiteral("recorder.noSuchKey"));
    if (state.result != HotKeyState::Result::taken)
        return {};
    return state.takenBy.isEmpty()
               ? strings.text(QStringLiteral("recorder.takenElsewhere"))
               : strings.format(QStringLiteral("recorder.used"), userOf(state.shortcut, state.id));
}

QString HotKeyForm::userOf(const SnippetShortcut& shortcut, HotKeyId exceptFor) const {
    return hotKeyWith(shortcut, exceptFor, m_parts.preferences, m_parts.keys, m_parts.strings);
}

} // namespace quorvel
