#include "MenuOutline.h"
#include "MenuRig.h"

#include "menu/ClipItems.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

class MenuSearchTest : public ::testing::Test, protected MenuRig {
protected:
    QString outline(const QString& query) const {
        return outlineOf(statusMenu(content, {.searchQuery = query}));
    }

    /// The rows between the search field and the next section; empty for none.
    QString results(const QString& query) const {
        const QString afterField = outline(query).section(QStringLiteral("|-|"), 1);
        return afterField.section(QStringLiteral("|-|Translate"), 0, 0);
    }
    QString resultsOf(const char* query) const { return results(QString::fromUtf8(query)); }
};

TEST_F(MenuSearchTest, IgnoresCaseAndDiacriticsAndBlanksAround) {
    insert(QStringLiteral("Am Straßenrand, im Café"));
    insert(QStringLiteral("other"));
    addSnippet(QStringLiteral("title only"), QStringLiteral("text only"));
    const struct {
        const char* query;
        const char* found;
    } cases[]{
        {"cafe", "1: Am Straßenrand, im Café"},
        {"CAFÉ", "1: Am Straßenrand, im Café"},
        {"  strassen\n", "1: Am Straßenrand, im Café"},
        {"t", "1: other|2: Am Straßenrand, im Café|title only"},
        {"text", "title only"},
        {"title", "Translate >"}, // none: snippets are searched by what they paste
        {"cafe other", "Translate >"},
    };
    for (const auto& [query, found] : cases)
        EXPECT_TRUE(resultsOf(query).startsWith(QString::fromUtf8(found)))
            << query << ": " << qPrintable(resultsOf(query));
    for (const char* blank : {"", "  ", "\n\t"})
        EXPECT_EQ(outline(QString::fromLatin1(blank)).section(u'|', 1),
                  outline({}).section(u'|', 1));
}

TEST_F(MenuSearchTest, ResultsAreClipsThenRootSnippetsThenGroups) {
    preferences.set(keys::clipboardHistoryLimit, 1);
    const QUuid group = addGroup(QStringLiteral("g"));
    const QUuid inner = addSnippet(QStringLiteral("inner"), QStringLiteral("needle 4"), group);
    addSnippet(QStringLiteral("root"), QStringLiteral("needle 3"));
    insert(QStringLiteral("old needle"));
    insert(QStringLiteral("new needle"));
    const QList<MenuItem> tree = statusMenu(content, {.searchQuery = QStringLiteral("NEEDLE")});
    EXPECT_EQ(outlineOf(tree.mid(0, 7)), QStringLiteral("? NEEDLE|-|1: new needle|2: old needle|"
                                                        "root|inner|-"));
    EXPECT_EQ(tree.at(5).action, MenuAction::pasteGroupSnippet);
    EXPECT_EQ(tree.at(5).representedObject,
              QStringLiteral("smartGroup:") + snippetText(group, inner));
}

TEST_F(MenuSearchTest, FindsNoMoreThanTheLimit) {
    preferences.set(keys::clipboardHistoryLimit, 50);
    for (int i = 0; i < 30; ++i)
        insert(QStringLiteral("clip %1").arg(i));
    const struct {
        int limit;
        int found;
    } cases[]{{0, 5}, {1, 1}, {20, 20}, {50, 20}, {-3, 1}};
    for (const auto& [limit, found] : cases) {
        store.set(QStringLiteral("menuSearchResultLimit"), limit);
        EXPECT_EQ(resultsOf("clip").count(QStringLiteral("clip ")), found) << limit;
    }
}

TEST_F(MenuSearchTest, WhatMaskingHidesCannotBeFound) {
    insert(QStringLiteral("password: hunter2secret"));
    const QUuid id = addSnippet(QStringLiteral("login"), QStringLiteral("password: swordfish77"));
    for (const char* secret : {"hunter2", "swordfish"}) {
        preferences.set(keys::sensitiveDataMaskingEnabled, true);
        EXPECT_TRUE(resultsOf(secret).startsWith(QStringLiteral("Translate"))) << secret;
        preferences.set(keys::sensitiveDataMaskingEnabled, false);
        EXPECT_FALSE(resultsOf(secret).startsWith(QStringLiteral("Translate"))) << secret;
    }
    snippets.editSnippet(id, {.title = QStringLiteral("login"), .text = QStringLiteral("moved")});
    EXPECT_TRUE(resultsOf("swordfish").startsWith(QStringLiteral("Translate")));
    EXPECT_TRUE(resultsOf("moved").startsWith(QStringLiteral("login")));
}

TEST_F(MenuSearchTest, PicturesAreFoundByTheirTitle) {
    history.insert({.text = QStringLiteral("hidden"), .imagePNGData = "png"});
    EXPECT_TRUE(resultsOf("image").startsWith(QStringLiteral("1: Image")));
    EXPECT_TRUE(resultsOf("hidden").startsWith(QStringLiteral("Translate")));
}

TEST_F(MenuSearchTest, EveryListOfClipsIsFiltered) {
    preferences.set(keys::clipboardHistoryLimit, 2);
    for (const char* text : {"https://a.example", "https://b.example", "c", "b"})
        insertLink(QString::fromLatin1(text));
    for (const RecentClipboardEntry& entry : QList(history.recentClipboard()))
        history.togglePin(entry.id);
    const struct {
        const char* query;
        const char* sections;
    } cases[]{
        {"b", "# Recent Clips|1: b|More Clips (1) >|(Save Clipboard as Snippet)|-|"
              "# Pinned Clips (2)|b|https://b.example|-|# Smart Folders|Links (2) >|-|"},
        {"c", "# Recent Clips|1: c|(Save Clipboard as Snippet)|-|"
              "# Pinned Clips (1)|c|-|# Smart Folders|Links (1) >|-|"},
        {"zzz", "# Recent Clips|(No matches)|(Save Clipboard as Snippet)|-|"
                "# Smart Folders|Links (0) >|-|"},
    };
    for (const auto& [query, sections] : cases) {
        const MenuState state{.searchQuery = QString::fromLatin1(query)};
        EXPECT_TRUE(outlineOf(statusMenu(content, state)).contains(QString::fromLatin1(sections)))
            << qPrintable(outlineOf(statusMenu(content, state)));
    }
    const MenuState none{.searchQuery = QStringLiteral("zzz")};
    EXPECT_EQ(
        outlineOf(submenuItems(QStringLiteral("folder-lazy-links"), MenuBuild(content, none))),
        QStringLiteral("(No matches)"));
}

} // namespace quorvel::testing
