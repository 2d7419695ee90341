#include "SnippetRig.h"

#include "snippets/SnippetTitle.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace quorvel::testing {

class SnippetStoreTest : public ::testing::Test {
protected:
    /// The library as another start of the program finds it.
    QString outlineAfterRestart() const { return SnippetSession(file).outline(); }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("QuorvelMenuBar/snippets.json"));
    SnippetSession run{file};
};

TEST_F(SnippetStoreTest, EveryOperationIsInMemoryAndInTheFile) {
    const QUuid a = run.add("a");
    const QUuid b = run.add("b");
    const QUuid work = run.addGroup("Work");
    const QUuid home = run.addGroup("Home");
    const QUuid c = run.add("c", work);
    SnippetStore& store = run.store;
    const auto title = [](const char* text) {
        return SnippetContent{.title = QString::fromUtf8(text), .text = QStringLiteral("t")};
    };
    struct Step {
        const char* name;
        std::function<SnippetResult()> act;
        const char* outline;
    };
    const Step steps[] = {
        {"nothing", [&] { return store.moveSnippet(a, {.position = 0}); }, "a,b|Work:c|Home:"},
        {"reorder down", [&] { return store.moveSnippet(a, {.position = 1}); }, "b,a|Work:c|Home:"},
        {"beyond the ends", [&] { return store.moveSnippet(a, {.position = -5}); },
         "a,b|Work:c|Home:"},
        {"to the end", [&] { return store.moveSnippet(a, {}); }, "b,a|Work:c|Home:"},
        {"into a group",
         [&] {
             return store.moveSnippet(b, {work, 0});
         },
         "a|Work:b,c|Home:"},
        {"within a group",
         [&] {
             return store.moveSnippet(b, {work, 1});
         },
         "a|Work:c,b|Home:"},
        {"between groups", [&] { return store.moveSnippet(c, {home}); }, "a|Work:b|Home:c"},
        {"to the root", [&] { return store.moveSnippet(b, {.position = 0}); }, "b,a|Work:|Home:c"},
        {"at a place",
         [&] {
             return store.addSnippet(title("x"), {home, 0});
         },
         "b,a|Work:|Home:x,c"},
        {"edit", [&] { return store.editSnippet(c, title("C")); }, "b,a|Work:|Home:x,C"},
        {"delete", [&] { return store.deleteSnippet(a); }, "b|Work:|Home:x,C"},
        {"rename", [&] { return store.renameGroup(home, QStringLiteral("Hof")); },
         "b|Work:|Hof:x,C"},
        {"reorder groups", [&] { return store.moveGroup(home, 0); }, "b|Hof:x,C|Work:"},
        {"groups beyond the end", [&] { return store.moveGroup(home, 9); }, "b|Work:|Hof:x,C"},
        {"delete a group", [&] { return store.deleteGroup(home); }, "b|Work:"},
    };
    for (const Step& step : steps) {
        EXPECT_TRUE(step.act().isOk()) << step.name;
        EXPECT_EQ(run.outline(), QString::fromUtf8(step.outline)) << step.name;
        EXPECT_EQ(outlineAfterRestart(), run.outline()) << step.name;
    }
}

TEST_F(SnippetStoreTest, WhatCannotBeDoneIsRefusedAndChangesNothing) {
    const QUuid group = run.addGroup("G");
    const QUuid snippet = run.add("s", group);
    const QUuid gone = QUuid::createUuid();
    const SnippetContent content{.title = QStringLiteral("t"), .text = QStringLiteral("t")};
    const QString blank = QStringLiteral(" \n\u202e\u00a0");
    SnippetStore& store = run.store;
    const StoreData before = run.data();
    const QByteArray stored = contentOf(file);
    QSignalSpy changed(&store, &SnippetStore::changed);
    const std::pair<SnippetResult, SnippetProblem> cases[] = {
        {store.addGroup(blank), SnippetProblem::blank},
        {store.renameGroup(group, QString()), SnippetProblem::blank},
        {store.renameGroup(gone, QStringLiteral("x")), SnippetProblem::noSuchGroup},
        {store.deleteGroup(snippet), SnippetProblem::noSuchGroup},
        {store.moveGroup(gone, 0), SnippetProblem::noSuchGroup},
        {store.addSnippet(content, {gone}), SnippetProblem::noSuchGroup},
        {store.addFromClipboard(blank), SnippetProblem::blank},
        {store.addFromClipboard(QString(), group), SnippetProblem::blank},
        {store.editSnippet(gone, content), SnippetProblem::noSuchSnippet},
        {store.editSnippet(snippet, {blank, blank, {}, {}}), SnippetProblem::blank},
        {store.deleteSnippet(group), SnippetProblem::noSuchSnippet},
        {store.moveSnippet(gone, {}), SnippetProblem::noSuchSnippet},
        {store.moveSnippet(snippet, {gone}), SnippetProblem::noSuchGroup},
        {store.incrementUsageCount(gone), SnippetProblem::noSuchSnippet},
    };
    for (const auto& [result, problem] : cases) {
        EXPECT_EQ(result.problem, std::optional(problem)) << &result - &cases[0].first;
        EXPECT_TRUE(result.id.isNull());
    }
    EXPECT_EQ(run.data(), before);
    EXPECT_EQ(contentOf(file), stored);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(SnippetStoreTest, ASnippetKeepsItsIdAndItsCountWhateverIsDoneToIt) {
    const QUuid group = run.addGroup("G");
    const QUuid id = run.add("text");
    for (int i = 0; i < 3; ++i)
        run.store.incrementUsageCount(id);
    const SnippetContent content{.title = QStringLiteral("title"),
                                 .text = QStringLiteral("new"),
                                 .shortcut = 3,
                                 .customShortcut = SnippetShortcut{QStringLiteral("k"), 0x120000}};
    run.store.editSnippet(id, content);
    run.store.moveSnippet(id, {group});
    SnippetSession after(file);
    for (const SnippetStore* store : {&run.store, &after.store}) {
        const Snippet* snippet = store->snippet(id);
        ASSERT_TRUE(snippet);
        EXPECT_EQ(
            *snippet,
            (Snippet{
                id, content.title, content.text, content.shortcut, content.customShortcut, 3, {}}));
        EXPECT_EQ(store->group(group)->snippets.size(), 1);
    }
}

TEST_F(SnippetStoreTest, UseCountsAreWrittenTogetherAndNotLostAtTheEnd) {
    const QUuid id = run.add("a");
    const auto storedCount = [&] { return SnippetSession(file).store.snippet(id)->usageCount; };
    for (int i = 0; i < 5; ++i)
        run.store.incrementUsageCount(id);
    EXPECT_EQ(run.disk.waiting(), 0U);
    EXPECT_EQ(storedCount(), 0);
    run.mainQueue.advance(SnippetStore::usageSaveDelay);
    EXPECT_EQ(storedCount(), 5);
    run.store.incrementUsageCount(id);
    run.store.saveNow();
    EXPECT_EQ(storedCount(), 6);
    run.store.incrementUsageCount(id);
    run.add("b"); // any save takes the counts along
    EXPECT_EQ(storedCount(), 7);
}

TEST_F(SnippetStoreTest, ChangesWhileTheDiskIsBusyAreOneWrite) {
    run.disk.hold();
    for (int i = 0; i < 1000; ++i)
        run.add("x");
    EXPECT_EQ(run.disk.waiting(), 1U);
    run.disk.runOne();
    EXPECT_EQ(SnippetSession(file).store.rootSnippets().size(), 1000);
}

TEST_F(SnippetStoreTest, TitlesComeFromTheFirstLineWithSomethingToSee) {
    const QString line = QString(1000, u'x');
    const std::pair<QString, QString> cases[] = {
        {QStringLiteral("one"), QStringLiteral("one")},
        {QStringLiteral("\r\n \t\n  two \r\nthree"), QStringLiteral("two")},
        {QStringLiteral("\u2028\u2029a\tb"), QStringLiteral("a b")},
        {QStringLiteral("\u202e\nseen"), QStringLiteral("seen")},
        {line, QString(59, u'x') + u'…' + QString(20, u'x')},
        {QString(1'000'000, u'\n') + u'z', QStringLiteral("z")},
        {QString(1'000'000, u'\n'), QString()},
        {QString(), QString()},
    };
    for (const auto& [text, title] : cases) {
        EXPECT_EQ(titleOfText(text), title);
        if (const QUuid id = run.store.addFromClipboard(text).id; !title.isEmpty()) {
            EXPECT_EQ(run.store.snippet(id)->text, text);
        }
    }
    const QUuid named = run.store.addSnippet({.title = QStringLiteral(" T "), .text = line}).id;
    EXPECT_EQ(run.store.snippet(named)->title, QStringLiteral(" T "));
}

TEST_F(SnippetStoreTest, WhatTheDiskRefusesIsToldOnceKeptAndSavedWhenItCanBe) {
    const QString blocker = folder.filePath(QStringLiteral("blocker"));
    putContent(blocker, "a file where the folder should be");
    SnippetSession blocked(blocker + QStringLiteral("/snippets.json"));
    QList<SnippetCreation> told;
    QObject::connect(&blocked.store, &SnippetStore::creationNotSaved,
                     [&](SnippetCreation creation, const QString& reason) {
                         told.append(creation);
                         EXPECT_FALSE(reason.isEmpty());
                     });
    QSignalSpy problem(&blocked.store, &SnippetStore::saveProblemChanged);
    const QUuid group = blocked.addGroup("G");
    blocked.mainQueue.settle();
    blocked.add("s", group);
    blocked.mainQueue.settle();
    blocked.store.renameGroup(group, QStringLiteral("H"));
    blocked.mainQueue.settle();
    blocked.mainQueue.advance(3 * SnippetFile::retryDelay);
    blocked.mainQueue.settle();
    EXPECT_EQ(told, QList({SnippetCreation::group, SnippetCreation::snippet}));
    EXPECT_FALSE(blocked.store.saveProblem().isEmpty());
    EXPECT_EQ(problem.size(), 1);
    EXPECT_EQ(blocked.outline(), QStringLiteral("|H:s"));

    ASSERT_TRUE(QFile::remove(blocker));
    blocked.mainQueue.advance(SnippetFile::retryDelay);
    blocked.mainQueue.settle();
    EXPECT_TRUE(blocked.store.saveProblem().isEmpty());
    EXPECT_EQ(problem.size(), 2);
    EXPECT_EQ(SnippetSession(blocked.store.fileURL()).outline(), blocked.outline());
}

TEST_F(SnippetStoreTest, TheEndTriesOnceMoreWhatFailed) {
    const QString blocker = folder.filePath(QStringLiteral("blocker"));
    putContent(blocker, "x");
    SnippetSession blocked(blocker + QStringLiteral("/snippets.json"));
    blocked.add("s");
    blocked.store.saveNow();
    EXPECT_FALSE(blocked.store.saveProblem().isEmpty());
    ASSERT_TRUE(QFile::remove(blocker));
    blocked.store.saveNow();
    EXPECT_TRUE(blocked.store.saveProblem().isEmpty());
    EXPECT_EQ(SnippetSession(blocked.store.fileURL()).outline(), QStringLiteral("s"));
}

} // namespace quorvel::testing
