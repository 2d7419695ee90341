#include "CoreRig.h"
#include "FakeUi.h"

#include "menu/ClipsSection.h"
#include "menu/StatusMenu.h"
#include "menu/StatusMenuController.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class StatusMenuTest : public ::testing::Test, protected CoreRig {
protected:
    QString text(const char* key) const { return strings.text(QString::fromLatin1(key)); }

    QStringList titles(MenuVariant variant = MenuVariant::main) const {
        QStringList list;
        for (const MenuItem& item : statusMenu(content, variant, {}))
            list.append(item.kind == MenuItemKind::separator ? QStringLiteral("-") : item.title);
        return list;
    }
    MenuItem titled(const QString& title) const {
        for (const MenuItem& item : statusMenu(content, MenuVariant::main, {}))
            if (item.title == title)
                return item;
        ADD_FAILURE() << qPrintable(title);
        return {};
    }

    StringTable strings = StringTable::forLanguage(QStringLiteral("en"));
    ShownTexts shownTexts;
    MenuContent content{history, preferences, strings, clock, shownTexts};
    FakeMenuRenderer renderer;
    StatusMenuController controller{content, history, watcher, renderer};
};

TEST_F(StatusMenuTest, AnEmptyHistorySaysSo) {
    EXPECT_EQ(titles(), QStringList({text("menu.clipsHeader"), text("menu.noRecentItems"),
                                     QStringLiteral("-"), text("achievements.title"),
                                     text("action.settings"), text("action.quit")}));
    EXPECT_FALSE(titled(text("menu.noRecentItems")).enabled);
}

TEST_F(StatusMenuTest, MenusOfHotKeysHaveNoQuitItem) {
    EXPECT_FALSE(titles(MenuVariant::pasteHotKey).contains(text("action.quit")));
    EXPECT_TRUE(titles(MenuVariant::pasteHotKey).contains(text("action.settings")));
}

TEST_F(StatusMenuTest, RecentClipsUpToTheLimitAndTheRestBehind) {
    preferences.set(keys::clipboardHistoryLimit, 11);
    for (int i = 1; i <= 14; ++i)
        insert(QStringLiteral("clip %1").arg(i));
    const QList<MenuItem> tree = statusMenu(content, MenuVariant::main, {});
    EXPECT_EQ(tree.at(1).title, QStringLiteral("clip 14"));
    EXPECT_EQ(tree.at(1).representedObject,
              history.recentClipboard().first().id.toString(QUuid::WithoutBraces).toUpper());
    EXPECT_EQ(tree.at(1).tag, 4101);
    EXPECT_EQ(tree.at(1).keyEquivalent, (KeyEquivalent{QStringLiteral("1"), Modifier::command}));
    EXPECT_EQ(tree.at(10).keyEquivalent, (KeyEquivalent{QStringLiteral("0"), Modifier::command}));
    EXPECT_EQ(tree.at(11).keyEquivalent, KeyEquivalent());
    const MenuItem& more = tree.at(12);
    EXPECT_EQ(more.title, strings.format(QStringLiteral("menu.moreClipboardItems.format"),
                                         QStringLiteral("3")));
    ASSERT_EQ(more.submenu.size(), 3);
    EXPECT_EQ(more.submenu.last().title, QStringLiteral("clip 1"));
    EXPECT_EQ(more.submenu.last().keyEquivalent, KeyEquivalent());
}

TEST_F(StatusMenuTest, PinnedClipsStandInTheirOwnSection) {
    insert(QStringLiteral("a"));
    insert(QStringLiteral("b"));
    history.togglePin(idOf(QStringLiteral("a")));
    const QString header = text("menu.pinnedClipsHeader");
    EXPECT_EQ(titles().mid(3, 3), QStringList({QStringLiteral("-"), header + QStringLiteral(" (1)"),
                                               QStringLiteral("a")}));
    preferences.set(keys::sectionCountersEnabled, false);
    EXPECT_EQ(titles().at(4), header);
}

TEST_F(StatusMenuTest, TitlesAreShortOneLineAndLiteral) {
    insert(QStringLiteral("  first\nsecond & third  "));
    history.insert({.imagePNGData = "png"});
    insert(QStringLiteral("abcdefghijklmnopqrstuvwxyzabcABCDEFGHIJKL"));
    const QStringList list = titles();
    EXPECT_EQ(list.at(1), QStringLiteral("abcdefghijklmnopqrstuvwxyzabc\u2026CDEFGHIJKL"));
    EXPECT_EQ(list.at(2), text("menu.image"));
    EXPECT_EQ(list.at(3), QStringLiteral("first second & third"));
}

TEST_F(StatusMenuTest, OpeningTakesAPendingCopyAndDropsLapsedPins) {
    insert(QStringLiteral("pinned"));
    history.pinFor(first().id, 10s);
    clock.advance(11s);
    pasteboard.setAnnouncesChanges(false);
    pasteboard.copyFromOutside(QStringLiteral("just copied"));
    controller.open(MenuVariant::main);
    EXPECT_EQ(renderer.tree.at(1).title, QStringLiteral("just copied"));
    EXPECT_FALSE(titles().join(QLatin1Char('|')).contains(text("menu.pinnedClipsHeader")));
}

TEST_F(StatusMenuTest, AnOpenMenuFollowsTheHistory) {
    controller.open(MenuVariant::pasteHotKey);
    insert(QStringLiteral("new"));
    EXPECT_EQ(renderer.tree.at(1).title, QStringLiteral("new"));
    controller.setSaveProblem(QStringLiteral("disk full"));
    EXPECT_TRUE(renderer.tree.first().title.contains(QStringLiteral("disk full")));
    renderer.close();
    EXPECT_FALSE(controller.rootMenuIsOpen());
    EXPECT_EQ(controller.currentMenuVariant(), MenuVariant::main);
    insert(QStringLiteral("unseen"));
    EXPECT_EQ(renderer.tree.at(3).title, QStringLiteral("new"));
}

TEST_F(StatusMenuTest, TogglingClosesTheSameFlavourAndSwitchesToAnother) {
    controller.toggle(MenuVariant::main);
    controller.toggle(MenuVariant::pasteHotKey);
    EXPECT_TRUE(renderer.isOpen());
    EXPECT_EQ(controller.currentMenuVariant(), MenuVariant::pasteHotKey);
    controller.toggle(MenuVariant::pasteHotKey);
    EXPECT_FALSE(renderer.isOpen());
}

} // namespace quorvel::testing
