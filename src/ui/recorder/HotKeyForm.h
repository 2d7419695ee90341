#pragma once

#include "paste/GlobalHotKeys.h"
#include "ui/recorder/ShortcutRecorder.h"

#include <QMap>

namespace quorvel {

/// Every hot key that the user can change, with a recorder each. What is chosen is stored and
/// registered at once; the default is stored by storing nothing.
class HotKeyForm final : public QWidget {
    Q_OBJECT

public:
    /// All of it outlives the form.
    struct Parts {
        const StringTable& strings;
        const Icons& icons;
        const HotKeyCenter& keys;
        Preferences& preferences;
        PreferenceStore& store;
        GlobalHotKeys& hotKeys;
    };

    explicit HotKeyForm(const Parts& parts, QWidget* parent = nullptr);
    ~HotKeyForm() override;

    ShortcutRecorder* recorder(HotKeyId id) const { return m_recorders.value(id); }

private:
    ShortcutRecorder* makeRecorder(const ConfigurableHotKey& hotKey);
    void storeShortcut(const ConfigurableHotKey& hotKey, const SnippetShortcut& shortcut);
    void showStored();
    void showProblems();
    QString problemOf(const HotKeyState& state) const;
    QString userOf(const SnippetShortcut& shortcut, HotKeyId exceptFor) const;

    const Parts m_parts;
    QMap<HotKeyId, ShortcutRecorder*> m_recorders; ///< Children of the form.
};

} // namespace quorvel
