#include "MenuOutline.h"
#include "MenuRig.h"

#include "menu/ClipItems.h"
#include "paste/ContextPastePayload.h"

#include <QStringBuilder>

#include <gtest/gtest.h>

namespace quorvel::testing {

class SubmenusTest : public ::testing::Test, protected MenuRig {
protected:
    QList<MenuItem> items(const QString& identifier) const {
        return submenuItems(identifier, MenuBuild(content, state));
    }
    QString folder(const char* name = "links") const {
        return outlineOf(items(folderIdentifier % QString::fromLatin1(name)));
    }
    QString folders() const {
        return sectionOf(outlineOf(statusMenu(content, state)), QStringLiteral("Smart Folders"));
    }
    void use(const QString& text, int times) {
        for (int i = 0; i < times; ++i)
            history.bump(*history.entry(idOf(text)));
    }

    const QString docs = QStringLiteral("https://docs.example");
    const QString shop = QStringLiteral("https://shop.example");
    MenuState state;
};

TEST_F(SubmenusTest, FoldersCountClipsAndSnippets) {
    EXPECT_EQ(folders(), QString());
    insertLink(docs);
    insertLink(shop);
    EXPECT_EQ(folders(), QStringLiteral("# Smart Folders|Links (2) >"));
    addSnippet(QStringLiteral("card"), QStringLiteral("550e8400-e29b-41d4-a716-446655440000"));
    EXPECT_EQ(folders(), QStringLiteral("# Smart Folders|Links (2) >|UUIDs (1) >"));
    preferences.set(keys::sectionCountersEnabled, false);
    EXPECT_EQ(folders(), QStringLiteral("# Smart Folders|Links >|UUIDs >"));
    preferences.set(keys::smartFolderSwitches[std::size_t(SmartFolderKind::links)], false);
    EXPECT_EQ(folders(), QStringLiteral("# Smart Folders|UUIDs >"));
}

TEST_F(SubmenusTest, FoldersFollowTheSnippets) {
    const QString uuid = QStringLiteral("550e8400-e29b-41d4-a716-446655440000");
    const QUuid group = addGroup(QStringLiteral("g"));
    const QUuid id = addSnippet(QStringLiteral("s"), uuid, group);
    EXPECT_EQ(folder("uuids"), QStringLiteral("s"));
    EXPECT_EQ(items(folderIdentifier % QStringLiteral("uuids")).first().representedObject,
              QStringLiteral("smartGroup:%1|%2").arg(idText(group), idText(id)));
    snippets.editSnippet(id, {.title = QStringLiteral("s"), .text = QStringLiteral("plain")});
    EXPECT_EQ(folders(), QString());
    snippets.editSnippet(id, {.title = QStringLiteral("s"), .text = uuid});
    snippets.moveSnippet(id, {});
    EXPECT_EQ(items(folderIdentifier % QStringLiteral("uuids")).first().representedObject,
              QStringLiteral("smartRoot:") + idText(id));
    snippets.deleteSnippet(id);
    EXPECT_EQ(folders(), QString());
}

TEST_F(SubmenusTest, AFolderShowsWhatIsUsedMostOnTop) {
    const QString news = QStringLiteral("https://news.example");
    for (const QString& text : {docs, news, shop})
        insertLink(text);
    use(news, 3);
    use(docs, 4);
    use(shop, 1);
    const QString recent = QStringLiteral("%1|%2|%3").arg(shop, docs, news);
    EXPECT_EQ(folder(), QStringLiteral("# Most Used|%1|%2|-|").arg(docs, news) + recent);
    preferences.set(keys::smartFolderMostUsedThreshold, 4);
    EXPECT_EQ(folder(), QStringLiteral("# Most Used|%1|-|").arg(docs) + recent);
    preferences.set(keys::smartFolderMostUsedThreshold, 5);
    EXPECT_EQ(folder(), recent);
    preferences.set(keys::smartFolderMostUsedEnabled, false);
    preferences.set(keys::smartSortingEnabled, true);
    EXPECT_EQ(folder(), QStringLiteral("%1|%2|%3").arg(docs, news, shop));
}

TEST_F(SubmenusTest, WhatHasGoneLeavesNothingOrSaysSo) {
    EXPECT_EQ(folder(), QStringLiteral("(No matches)"));
    EXPECT_EQ(folder("unknown"), QString());
    EXPECT_EQ(outlineOf(items(QStringLiteral("group-lazy-") + idText(QUuid::createUuid()))),
              QString());
    EXPECT_EQ(outlineOf(items(QStringLiteral("advanced-lazy-nonsense"))), QString());
}

TEST_F(SubmenusTest, GroupsTakeTheClipboard) {
    const QUuid group = addGroup(QStringLiteral("g"));
    const auto outline = [&] { return outlineOf(items(groupIdentifier % idText(group))); };
    EXPECT_EQ(outline(), QStringLiteral("(Empty)|-|(Save Clipboard to This Group)"));
    pasteboard.copyFromOutside(QStringLiteral("x"));
    addSnippet(QStringLiteral("one"), QStringLiteral("1"), group,
               SnippetShortcut{QStringLiteral("o"), 0x100000});
    addSnippet(QStringLiteral("two"), QStringLiteral("2"), group);
    EXPECT_EQ(outline(), QStringLiteral("o: one|two|-|Save Clipboard to This Group"));
    const MenuItem add = items(groupIdentifier % idText(group)).last();
    EXPECT_EQ(add.action, MenuAction::addFromClipboardToGroup);
    EXPECT_EQ(add.representedObject, idText(group));
}

/// Titles with what the rows are about.
QString waysToPaste(const QList<MenuItem>& items) {
    QStringList rows;
    for (const MenuItem& item : items)
        if (item.tag == pasteItemTag)
            rows.append(outlineOf(item) + u'=' + item.representedObject.section(u'|', -1));
    return rows.join(u'|');
}

TEST_F(SubmenusTest, OptionModeOffersEveryWayToPasteAClip) {
    insert(QStringLiteral("first"));
    insert(QStringLiteral("second"));
    state.isOptionMode = true;
    const QString row = statusMenu(content, state).at(5).identifier;
    EXPECT_EQ(row, QStringLiteral("advanced-lazy-") + idText(first().id));
    const QList<MenuItem> advanced = items(row);
    EXPECT_EQ(outlineOf(advanced),
              QStringLiteral("(second)|-|1: second|Paste as Plain Text|Edit and Paste…|"
                             "Paste and Keep Clipboard|-|Pin|Pin for an Hour|Pin for a Day"));
    EXPECT_EQ(waysToPaste(advanced),
              QStringLiteral("1: second=normal|Paste as Plain Text=plainText|"
                             "Edit and Paste…=withEdit|Paste and Keep Clipboard=keepClipboard"));
    EXPECT_EQ(advanced.at(3).action, MenuAction::pasteRecentSnippetWithMode);
    EXPECT_EQ(advanced.at(3).representedObject, idText(first().id) + QStringLiteral("|plainText"));
    EXPECT_EQ(advanced.last().representedObject, idText(first().id));
    history.togglePin(first().id);
    EXPECT_EQ(outlineOf(items(row).at(7)), QStringLiteral("Unpin"));
}

TEST_F(SubmenusTest, OptionModeKnowsWhatSuitsPicturesAndSnippets) {
    history.insert({.imagePNGData = "png"});
    const QUuid group = addGroup(QStringLiteral("g"));
    const QUuid root = addSnippet(QStringLiteral("root"), QStringLiteral("r"));
    const QUuid inner = addSnippet(QStringLiteral("inner"), QStringLiteral("i"), group);
    state.isOptionMode = true;
    const auto advanced = [&](const QString& source) { return items(advancedIdentifier % source); };
    EXPECT_EQ(outlineOf(advanced(idText(first().id))),
              QStringLiteral("(Image)|-|1: Image|Paste and Keep Clipboard|-|"
                             "Pin|Pin for an Hour|Pin for a Day"));
    EXPECT_EQ(waysToPaste(advanced(idText(root))),
              QStringLiteral("root=normal|Paste as Plain Text=plainText|"
                             "Edit and Paste…=withEdit|Paste and Keep Clipboard=keepClipboard"));
    const struct {
        QString source;
        MenuAction action;
        QString representedObject;
    } snippetCases[]{
        {idText(root), MenuAction::pasteRootSnippetWithMode, idText(root)},
        {smartRootPrefix % idText(root), MenuAction::pasteRootSnippetWithMode, idText(root)},
        {smartGroupPrefix % snippetText(group, inner), MenuAction::pasteGroupSnippetWithMode,
         snippetText(group, inner)},
    };
    for (const auto& [source, action, representedObject] : snippetCases) {
        const MenuItem plain = advanced(source).at(3);
        EXPECT_EQ(plain.action, action);
        EXPECT_EQ(plain.representedObject, representedObject + QStringLiteral("|plainText"));
    }
}

TEST_F(SubmenusTest, ShortcutsOfSnippetsWorkInOptionModeBeforeAndAfterARowIsFilled) {
    const SnippetShortcut keys{QStringLiteral("1"), 0x40000 | 0x80000};
    const QUuid group = addGroup(QStringLiteral("g"));
    addSnippet(QStringLiteral("root"), QStringLiteral("r"), {}, keys);
    addSnippet(QStringLiteral("inner"), QStringLiteral("i"), group, keys);
    state.isOptionMode = true;
    const auto rowIn = [](const QList<MenuItem>& list, MenuAction action) {
        const auto row = std::find_if(list.begin(), list.end(),
                                      [&](const MenuItem& item) { return item.action == action; });
        return row == list.end() ? MenuItem() : *row;
    };
    for (const auto& [list, action] :
         {std::pair(statusMenu(content, state), MenuAction::pasteRootSnippet),
          std::pair(items(groupIdentifier % idText(group)), MenuAction::pasteGroupSnippet)}) {
        const MenuItem row = rowIn(list, action);
        ASSERT_EQ(row.innerKeys.size(), 1);
        EXPECT_EQ(row.innerKeys.first().keyEquivalent.modifiers,
                  Modifier::control | Modifier::option);
        EXPECT_EQ(row.innerKeys.first().action, action);
        EXPECT_EQ(row.innerKeys.first().representedObject, row.representedObject);
        const MenuItem normal = items(row.identifier).value(2);
        EXPECT_EQ(normal.keyEquivalent, row.innerKeys.first().keyEquivalent);
        EXPECT_EQ(normal.representedObject, row.representedObject + QStringLiteral("|normal"));
    }
}

TEST_F(SubmenusTest, TextsCanBePastedAsTypedInAnotherLayout) {
    layouts.configure(
        {FakeKeyboardLayouts::layout(QStringLiteral("us"), QStringLiteral("ghbdtnz")),
         FakeKeyboardLayouts::layout(QStringLiteral("ru"), QStringLiteral("приветя")),
         FakeKeyboardLayouts::layout(QStringLiteral("de"), QStringLiteral("ghbdtny"))});
    const auto rows = [&](const QString& source) {
        QList<MenuItem> list = items(advancedIdentifier % source);
        list.removeIf(
            [](const MenuItem& item) { return item.action != MenuAction::pasteContextValue; });
        return list;
    };
    insert(QStringLiteral("ghbdtn"));
    const QList<MenuItem> clip = rows(idText(first().id));
    EXPECT_EQ(outlineOf(clip), QStringLiteral("Paste as Typed in RU"));
    EXPECT_EQ(clip.first().detail, QStringLiteral("привет"));
    EXPECT_EQ(ContextPastePayload::fromText(clip.first().representedObject),
              (ContextPastePayload{QStringLiteral("привет"), QStringLiteral("ru")}));
    insert(QStringLiteral("zhzhzh"));
    EXPECT_EQ(outlineOf(rows(idText(first().id))), QStringLiteral("Paste as Typed in RU"))
        << "no nonsense of the same script";
    insert(QStringLiteral("ghbdtn ").repeated(300));
    EXPECT_EQ(outlineOf(rows(idText(first().id))), QString());
    EXPECT_EQ(outlineOf(rows(idText(addSnippet(QStringLiteral("s"), QStringLiteral("dtn"))))),
              QStringLiteral("Paste as Typed in RU"));
    insert(QStringLiteral("password: Hunter2Hunter2gh"));
    const MenuItem secret = rows(idText(first().id)).value(0);
    EXPECT_EQ(secret.detail + secret.toolTip, QString()) << "hidden in every layout";
    EXPECT_NE(secret.representedObject, QString());
}

TEST_F(SubmenusTest, RowsInFoldersLeadToTheSameActions) {
    insertLink(docs);
    state.isOptionMode = true;
    const MenuItem row = items(folderIdentifier % QStringLiteral("links")).first();
    EXPECT_EQ(row.representedObject, QStringLiteral("smartRecent:") + idText(first().id));
    EXPECT_EQ(items(row.identifier).at(3).representedObject,
              idText(first().id) + QStringLiteral("|plainText"));
}

} // namespace quorvel::testing
