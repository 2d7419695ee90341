#include "menu/SnippetRows.h"

#include "foundation/Text.h"
#include "menu/ClipItems.h"

namespace quorvel {

namespace {

/// Whether both give the same row; the use of a snippet is not seen in it.
bool looksSame(const Snippet& a, const Snippet& b) {
    return a.id == b.id && a.customShortcut == b.customShortcut && isSameText(a.title, b.title) &&
           isSameText(a.text, b.text);
}

MenuItem row(const Snippet& snippet, const QUuid& group, const MenuBuild& build) {
    MenuItem item = plainSnippetItem(snippet, group, build.content());
    item.keyEquivalent = shortcutKeys(snippet);
    return item;
}

/// Its shortcut goes on pasting.
void leadToModesAndPaste(MenuItem& item) {
    leadToModes(item);
    if (!item.keyEquivalent.key.isEmpty())
        item.innerKeys = {{item.keyEquivalent, item.action, item.representedObject}};
}

} // namespace

QList<MenuItem> SnippetRows::of(const QUuid& group, const QList<Snippet>& snippets,
                                const MenuBuild& build) const {
    Known& known = group.isNull() ? m_root : m_group;
    const bool isMasked = build.content().preferences.isOn(keys::sensitiveDataMaskingEnabled);
    if (known.group != group || known.isMasked != isMasked)
        known = {.group = group, .isMasked = isMasked, .snippets = {}, .rows = {}};
    renew(known, snippets, build);
    QList<MenuItem> rows = known.rows;
    if (build.state().isOptionMode)
        for (MenuItem& item : rows)
            leadToModesAndPaste(item);
    return rows;
}

void SnippetRows::renew(Known& known, const QList<Snippet>& snippets, const MenuBuild& build) {
    const bool sharesMemory = known.snippets.constData() == snippets.constData();
    if (sharesMemory && known.snippets.size() == snippets.size())
        return;
    known.rows.resize(snippets.size());
    for (qsizetype i = 0; i < snippets.size(); ++i)
        if (i >= known.snippets.size() || !looksSame(known.snippets.at(i), snippets.at(i)))
            known.rows[i] = row(snippets.at(i), known.group, build);
    known.snippets = snippets;
}

} // namespace quorvel
