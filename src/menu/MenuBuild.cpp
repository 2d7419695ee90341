#include "menu/MenuBuild.h"

namespace quorvel {

MenuBuild::MenuBuild(const MenuContent& content, const MenuState& state)
    : m_content(content)
    , m_state(state)
    , m_foldedQuery(content.preferences.isOn(keys::menuSearchEnabled)
                        ? SearchTexts::foldedForm(state.searchQuery.trimmed())
                        : QByteArray()) {}

bool MenuBuild::matches(const RecentClipboardEntry& entry) const {
    return !isSearching() || isFound(entry.id, entry.isImage() ? text("menu.image") : entry.text);
}

bool MenuBuild::matches(const Snippet& snippet) const {
    return !isSearching() || isFound(snippet.id, snippet.text);
}

bool MenuBuild::isFound(const QUuid& id, const QString& text) const {
    const auto known = m_found.constFind(id);
    if (known != m_found.constEnd())
        return *known;
    const bool found = m_content.searchTexts.contains(id, text, m_foldedQuery);
    m_found.insert(id, found);
    return found;
}

bool MenuBuild::pasteboardHasText() const {
    if (!m_pasteboardHasText) {
        const QString text = m_content.pasteboard.string();
        m_pasteboardHasText =
            std::any_of(text.begin(), text.end(), [](QChar c) { return !c.isSpace(); });
    }
    return *m_pasteboardHasText;
}

QString countedTitle(const QString& title, qsizetype count, const Preferences& preferences) {
    return preferences.isOn(keys::sectionCountersEnabled)
               ? QStringLiteral("%1 (%2)").arg(title).arg(count)
               : title;
}

} // namespace quorvel
