#include "MenuRig.h"

#include "menu/ClipItems.h"

#include <QStringBuilder>

#include <gtest/gtest.h>

namespace quorvel::testing {

class SnippetRowsTest : public ::testing::Test, protected MenuRig {
protected:
    static QString described(const QList<MenuItem>& rows) {
        QString all;
        for (const MenuItem& row : rows)
            all += row.title % u"; "_qs % row.representedObject % u"; "_qs % row.toolTip %
                   u"; "_qs % row.keyEquivalent.key % u"; "_qs % row.identifier % u'\n';
        return all;
    }

    /// Of everything, the rows at the root and in the group.
    QString rows(const SnippetRows& from) const {
        const MenuBuild build(content, state);
        return described(from.of(QUuid(), snippets.rootSnippets(), build)) % u"--\n"_qs %
               described(from.of(group, snippets.group(group)->snippets, build));
    }

    const QUuid group = addGroup(QStringLiteral("g"));
    MenuState state;
};

TEST_F(SnippetRowsTest, KeptRowsAreTrueToTheLibraryAfterEveryChange) {
    QList<QUuid> ids;
    for (const char* name : {"a", "b", "c"})
        ids.append(
            addSnippet(QString::fromLatin1(name), QStringLiteral("password: hunter2secret")));
    addSnippet(QStringLiteral("inner"), QStringLiteral("text"), group);
    const SnippetShortcut shortcut{QStringLiteral("k"), 0xFFFFFFFF};
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"nothing", [] {}},
        {"a use", [&] { snippets.incrementUsageCount(ids[1]); }},
        {"a title", [&] { snippets.editSnippet(ids[1], {.title = u"B"_qs, .text = u"b"_qs}); }},
        {"a text", [&] { snippets.editSnippet(ids[1], {.title = u"B"_qs, .text = u"c"_qs}); }},
        {"keys",
         [&] {
             snippets.editSnippet(ids[1],
                                  {.title = u"B"_qs, .text = u"c"_qs, .customShortcut = shortcut});
         }},
        {"another order", [&] { snippets.moveSnippet(ids[2], {.position = 0}); }},
        {"a move into the group", [&] { snippets.moveSnippet(ids[0], {.group = group}); }},
        {"option mode", [&] { state.isOptionMode = true; }},
        {"no masking", [&] { preferences.set(keys::sensitiveDataMaskingEnabled, false); }},
        {"option mode's end", [&] { state.isOptionMode = false; }},
        {"a new one", [&] { addSnippet(u"d"_qs, u"d"_qs); }},
        {"one less", [&] { snippets.deleteSnippet(ids[2]); }},
    };
    for (const auto& [name, change] : changes) {
        change();
        EXPECT_EQ(rows(snippetRows), rows(SnippetRows())) << name;
    }
}

TEST_F(SnippetRowsTest, AnotherGroupHasItsOwnRows) {
    const QUuid other = addGroup(QStringLiteral("other"));
    for (const QUuid& id : {group, other})
        addSnippet(QStringLiteral("same"), QStringLiteral("same"), id);
    for (const QUuid& id : {group, other, group})
        EXPECT_TRUE(submenuItems(groupIdentifier % idText(id), MenuBuild(content, state))
                        .constFirst()
                        .representedObject.startsWith(idText(id)));
}

} // namespace quorvel::testing
