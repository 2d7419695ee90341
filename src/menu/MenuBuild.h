#pragma once

#include "menu/MenuContent.h"
#include "menu/MenuItem.h"

#include <QHash>

namespace quorvel {

/// One build of the menu: what it is made from, how it is shown, and what the search has found so
/// far. Lives for one build.
class MenuBuild {
public:
    MenuBuild(const MenuContent& content, const MenuState& state);

    const MenuContent& content() const { return m_content; }
    const MenuState& state() const { return m_state; }
    QString text(const char* key) const { return m_content.text(key); }

    /// Whether there is anything to search for.
    bool isSearching() const { return !m_foldedQuery.isEmpty(); }

    /// Whether the search lets it through; everything when there is nothing to search for.
    bool matches(const RecentClipboardEntry& entry) const;
    bool matches(const Snippet& snippet) const;

    /// Whether the pasteboard holds text that is more than blanks.
    bool pasteboardHasText() const;

private:
    bool isFound(const QUuid& id, const QString& text) const;

    const MenuContent& m_content;
    const MenuState& m_state;
    const QByteArray m_foldedQuery;
    mutable QHash<QUuid, bool> m_found;
    mutable std::optional<bool> m_pasteboardHasText;
};

/// The title with its count in parentheses, when counters are switched on.
QString countedTitle(const QString& title, qsizetype count, const Preferences& preferences);

} // namespace quorvel
