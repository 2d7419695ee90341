#include "CoreRig.h"

#include "clipboard/SmartFolderClipboard.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {
namespace {

using Folder = SmartFolderKind;

struct SmartFolderClipboardTest : CoreRig, ::testing::Test {
    QStringList textsIn(Folder kind) const {
        QStringList list;
        for (const RecentClipboardEntry& entry : folders.entries(kind))
            list.append(entry.text);
        return list;
    }

    void insertLink(const QString& text) {
        history.insert({.text = text, .autoTags = {ClipboardAutoTag::url}});
    }

    SmartFolderClipboard folders{smartPluginRegistry, history, preferences, clock};
};

TEST_F(SmartFolderClipboardTest, ACopyIsTaggedAndFiled) {
    pasteboard.copyFromOutside(QStringLiteral("PROJ-42"));
    watcher.tick();
    EXPECT_EQ(first().autoTags, (QList{ClipboardAutoTag::ticket, ClipboardAutoTag::jiraIssue}));
    EXPECT_EQ(textsIn(Folder::tickets), QStringList{QStringLiteral("PROJ-42")});
    EXPECT_TRUE(textsIn(Folder::links).isEmpty());
}

TEST_F(SmartFolderClipboardTest, AFolderKeepsWhatTheHistoryDropsButNotWhatIsDeleted) {
    preferences.set(keys::clipboardHistoryLimit, 1);
    for (int i = 0; i < 320; ++i)
        insertLink(QStringLiteral("l%1").arg(i));
    EXPECT_EQ(history.recentClipboard().size(), 4);
    EXPECT_EQ(textsIn(Folder::links).size(), SmartFolderClipboard::smartFolderStorageLimit);
    EXPECT_EQ(textsIn(Folder::links).first(), QStringLiteral("l319"));
    const QUuid dropped = folders.entries(Folder::links).at(100).id;
    EXPECT_EQ(history.entry(dropped), nullptr);
    EXPECT_NE(folders.entry(dropped), nullptr);
    history.remove(idOf(QStringLiteral("l319")));
    EXPECT_EQ(textsIn(Folder::links).first(), QStringLiteral("l318"));
    folders.rebuild();
    EXPECT_EQ(textsIn(Folder::links).size(), 3);
}

TEST_F(SmartFolderClipboardTest, AnotherCopyOfTheSameMovesToTheFront) {
    insertLink(QStringLiteral("a"));
    insertLink(QStringLiteral("b"));
    insertLink(QStringLiteral("a"));
    EXPECT_EQ(textsIn(Folder::links), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(SmartFolderClipboardTest, PinsBelongToOneFolderAndLapse) {
    insertLink(QStringLiteral("a"));
    const RecentClipboardEntry entry = first();
    folders.pin(Folder::links, entry.id, 60s);
    EXPECT_TRUE(folders.isPinned(Folder::links, entry));
    EXPECT_FALSE(folders.isPinned(Folder::emails, entry));
    EXPECT_FALSE(first().pinned) << "the history's own pins are others";
    preferences.set(keys::clipboardHistoryLimit, 1);
    for (int i = 0; i < 10; ++i)
        insertLink(QString::number(i));
    EXPECT_NE(history.entry(entry.id), nullptr) << "a pin in a folder keeps the clip";
    clock.advance(61s);
    insertLink(QStringLiteral("later"));
    EXPECT_FALSE(folders.isPinned(Folder::links, entry));
    folders.pin(Folder::links, first().id, std::nullopt);
    folders.unpin(Folder::links, first().id);
    EXPECT_FALSE(folders.isPinned(Folder::links, first()));
}

TEST_F(SmartFolderClipboardTest, AllFoldersAreOnUntilSwitchedOff) {
    EXPECT_EQ(folders.enabledSmartFolders().size(), smartFolderCount);
    preferences.set(keys::smartFolderSwitches[std::size_t(Folder::dates)], false);
    EXPECT_EQ(folders.enabledSmartFolders().size(), smartFolderCount - 1);
    EXPECT_FALSE(folders.enabledSmartFolders().contains(Folder::dates));
}

} // namespace
} // namespace quorvel::testing
