#pragma once

#include "foundation/StringTable.h"
#include "ui/Icons.h"
#include "ui/recorder/ChordField.h"
#include "ui/recorder/ChordReader.h"
#include "ui/recorder/MessageLine.h"

#include <QToolButton>

#include <functional>

namespace quorvel {

/// Lets the user choose a shortcut by pressing it: click it or press Enter or Space, then the keys.
/// Escape cancels, Backspace goes back to the default. Below it stands why keys cannot be chosen.
class ShortcutRecorder final : public QWidget {
    Q_OBJECT

public:
    struct Parts {
        QString name; ///< What the shortcut does, for those who hear the screen.
        const StringTable& strings;
        const HotKeyCenter& keys; ///< Outlives the recorder.
        const Icons& icons;

        /// What the user calls that which has these keys already; empty when nothing of ours has.
        std::function<QString(const SnippetShortcut&)> usedBy;
    };

    ShortcutRecorder(const Parts& parts, const SnippetShortcut& byDefault,
                     QWidget* parent = nullptr);
    ~ShortcutRecorder() override;

    const SnippetShortcut& shortcut() const { return m_shortcut; }
    void setShortcut(const SnippetShortcut& shortcut);

    /// What is wrong with the shortcut as it is, such as another program having it; empty for
    /// nothing.
    void setProblem(const QString& problem);

    bool isRecording() const { return m_field.isRecording(); }

    /// What stands below the keys; empty for nothing.
    QString message() const { return m_message.text(); }

signals:
    /// The user has chosen other keys.
    void shortcutRecorded(const quorvel::SnippetShortcut& shortcut);

    /// Between these two, no hot key may act: its keys may be just what is chosen.
    void recordingBegan();
    void recordingEnded();

protected:
    void changeEvent(QEvent* event) override;

private:
    using Tone = MessageLine::Tone;

    void layOut();
    void setUpReset(const Icons& icons);
    void toggle();
    void begin();
    void end();
    bool read(QKeyEvent& event);
    void take(const ChordReading& reading);
    void propose(const SnippetShortcut& shortcut);
    QString objection(const SnippetShortcut& shortcut) const;
    void showHeld(Modifiers held);
    void showShortcut();
    void say(const QString& message, Tone tone);
    void describe();
    QString text(const char* key) const { return m_strings.text(QString::fromLatin1(key)); }
    QString name(const SnippetShortcut& shortcut) const;

    const StringTable m_strings;
    const HotKeyCenter& m_keys;
    const std::function<QString(const SnippetShortcut&)> m_usedBy;
    const SnippetShortcut m_default;
    SnippetShortcut m_shortcut;
    QString m_problem;
    ChordField m_field;
    QToolButton m_reset;
    MessageLine m_message;
};

} // namespace quorvel
