#include "FakeKeyPoster.h"
#include "FakeUi.h"
#include "MenuRig.h"

#include "app/MenuCommands.h"
#include "menu/ClipItems.h"
#include "paste/ContextPastePayload.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class MenuCommandsTest : public ::testing::Test, protected MenuRig {
protected:
    void choose(MenuAction action, const QString& about = {}, Modifiers held = {}) {
        commands.run({action, about, held});
    }

    FakeKeyPoster keyPoster;
    FocusTracker focus{workspace, mainQueue, 1};
    ClipboardTurns turns;
    PasteDelivery delivery{pasteboard, watcher, focus, workspace, keyPoster, turns, mainQueue};
    PasteEngine engine{delivery, history};
    CopyTools copyTools{pasteboard, watcher};
    FakeDesktop desktop;
    FakeTerminal terminal;
    ContextCommands contextCommands{{engine, desktop, terminal, layouts, strings}};
    MenuCommands commands{
        {history, smartFolders, snippets, pasteboard, engine, copyTools, contextCommands}};
};

TEST_F(MenuCommandsTest, EveryRowThatPastesFindsItsClipOrSnippet) {
    insertLink(QStringLiteral("clip"));
    const QString clip = idText(first().id);
    const QUuid group = addGroup(QStringLiteral("g"));
    const QUuid root = addSnippet(QStringLiteral("r"), QStringLiteral("root"));
    const QUuid inner = addSnippet(QStringLiteral("i"), QStringLiteral("inner"), group);
    const QString grouped = snippetText(group, inner);
    const struct {
        MenuAction action;
        QString about;
        const char* pasted; ///< Null for nothing.
    } cases[]{
        {MenuAction::pasteRecentSnippet, clip, "clip"},
        {MenuAction::pasteRecentSnippet, QStringLiteral("smartRecent:") + clip, "clip"},
        {MenuAction::pasteRootSnippet, idText(root), "root"},
        {MenuAction::pasteRootSnippet, QStringLiteral("smartRoot:") + idText(root), "root"},
        {MenuAction::pasteGroupSnippet, grouped, "inner"},
        {MenuAction::pasteGroupSnippet, QStringLiteral("smartGroup:") + grouped, "inner"},
        {MenuAction::pasteRecentSnippetWithMode, clip + QStringLiteral("|plainText"), "clip"},
        {MenuAction::pasteRootSnippetWithMode, idText(root) + QStringLiteral("|normal"), "root"},
        {MenuAction::pasteGroupSnippetWithMode, grouped + QStringLiteral("|normal"), "inner"},
        {MenuAction::pasteRecentSnippetWithMode, clip, nullptr},
        {MenuAction::pasteRecentSnippetWithMode, clip + QStringLiteral("|sideways"), nullptr},
        {MenuAction::pasteRecentSnippetWithMode, clip + QStringLiteral("|a|normal"), nullptr},
        {MenuAction::pasteRecentSnippet, idText(QUuid::createUuid()), nullptr},
        {MenuAction::pasteRecentSnippet, QString(), nullptr},
    };
    QSignalSpy pasted(&engine, &PasteEngine::pasted);
    for (const auto& [action, about, expected] : cases) {
        pasted.clear();
        choose(action, about);
        ASSERT_EQ(pasted.size(), expected ? 1 : 0) << qPrintable(about);
        if (expected) {
            EXPECT_EQ(pasted.first().first().toString(), QString::fromLatin1(expected));
        }
    }
    EXPECT_EQ(first().usageCount, 3);
    EXPECT_EQ(snippets.snippet(root)->usageCount, 3);
    EXPECT_EQ(snippets.snippet(inner)->usageCount, 3);
}

TEST_F(MenuCommandsTest, ControlAsksForEditingFirst) {
    insert(QStringLiteral("clip"));
    QStringList edited;
    QObject::connect(&engine, &PasteEngine::editRequested,
                     [&](const EditRequest& request) { edited.append(request.text); });
    choose(MenuAction::pasteRecentSnippet, idText(first().id), Modifier::control);
    EXPECT_EQ(edited, QStringList(QStringLiteral("clip")));
    EXPECT_EQ(pasteboard.writeCount(), 0);
}

TEST_F(MenuCommandsTest, TheClipboardBecomesASnippetWhereItWasAskedFor) {
    QSignalSpy refused(&commands, &MenuCommands::snippetRefused);
    const QUuid group = addGroup(QStringLiteral("g"));
    choose(MenuAction::addFromClipboard);
    EXPECT_EQ(refused.size(), 1) << "there is no text";
    pasteboard.copyFromOutside(QStringLiteral("kept"));
    choose(MenuAction::addFromClipboard);
    choose(MenuAction::addFromClipboardToGroup, idText(group));
    choose(MenuAction::addFromClipboardToGroup, idText(QUuid::createUuid()));
    EXPECT_EQ(refused.size(), 2) << "there is no such group";
    ASSERT_EQ(snippets.rootSnippets().size(), 1);
    ASSERT_EQ(snippets.groups().first().snippets.size(), 1);
    EXPECT_EQ(snippets.groups().first().snippets.first().text, QStringLiteral("kept"));
}

TEST_F(MenuCommandsTest, CopyToolsAndPinsReachWhatTheyName) {
    const struct {
        MenuAction action;
        const char* text;
    } tools[]{{MenuAction::copyClipboardAsPlainText, " aB  c"},
              {MenuAction::copyClipboardTrimAndCollapse, "aB c"},
              {MenuAction::copyClipboardUppercase, " AB  C"},
              {MenuAction::copyClipboardLowercase, " ab  c"},
              {MenuAction::copyClipboardTitleCase, " Ab  C"}};
    for (const auto& [action, text] : tools) {
        pasteboard.copyFromOutside(QStringLiteral(" aB  c"));
        choose(action);
        EXPECT_EQ(pasteboard.string(), QString::fromLatin1(text));
    }
    const QString clip = idText(first().id);
    const struct {
        MenuAction action;
        bool pinned;
        double seconds; ///< 0 for without end.
    } pins[]{{MenuAction::togglePinRecentSnippet, true, 0},
             {MenuAction::togglePinRecentSnippet, false, 0},
             {MenuAction::pinRecentSnippetForHour, true, 3600},
             {MenuAction::pinRecentSnippetForDay, true, 86400}};
    for (const auto& [action, pinned, seconds] : pins) {
        choose(action, clip);
        EXPECT_EQ(first().pinned, pinned);
        EXPECT_EQ(first().pinnedUntil,
                  seconds > 0 ? std::optional(Date(clock.now() + seconds * 1s)) : std::nullopt);
    }
}

TEST_F(MenuCommandsTest, PartsOfTextsArePastedOpenedCalledAndRun) {
    const QString value = QStringLiteral("a|b \"c\"\n");
    choose(MenuAction::pasteContextValue, ContextPastePayload{value, std::nullopt}.text());
    EXPECT_EQ(pasteboard.string(), value);
    choose(MenuAction::pasteContextValue, QStringLiteral("nonsense"));
    EXPECT_EQ(pasteboard.writeCount(), 1);
    layouts.configure({FakeKeyboardLayouts::layout(QStringLiteral("us"), QStringLiteral("d")),
                       FakeKeyboardLayouts::layout(QStringLiteral("ru"), QStringLiteral("в"))});
    choose(MenuAction::pasteContextValue, ContextPastePayload{value, std::nullopt}.text());
    EXPECT_EQ(layouts.activeID(), QStringLiteral("us"));
    choose(MenuAction::pasteContextValue,
           ContextPastePayload{QStringLiteral("в"), QStringLiteral("ru")}.text());
    EXPECT_EQ(layouts.activeID(), QStringLiteral("ru"));
    choose(MenuAction::openRecentURL, QStringLiteral("https://a.example/?q=%20x"));
    choose(MenuAction::openRecentJiraIssue, QStringLiteral("https://t.example/browse/A-1"));
    choose(MenuAction::openRecentPullRequest, QStringLiteral("https://g.example/pull/1"));
    choose(MenuAction::composeEmail, QStringLiteral("mailto:jane@example.org"));
    choose(MenuAction::callRecentPhoneNumber, QStringLiteral("+4930901820"));
    EXPECT_EQ(desktop.openedUrls.join(u' '),
              QStringLiteral("https://a.example/?q=%20x https://t.example/browse/A-1 "
                             "https://g.example/pull/1 mailto:jane@example.org tel:+4930901820"));
    choose(MenuAction::openTerminalCommand, QStringLiteral("ls -l"));
    choose(MenuAction::runTerminalCommand, QStringLiteral("ls -l"));
    EXPECT_EQ(terminal.commands.join(u'|'), QStringLiteral("type ls -l|run ls -l"));
    EXPECT_TRUE(desktop.messages.isEmpty());
}

TEST_F(MenuCommandsTest, WhatCannotBeOpenedOrRunIsTold) {
    desktop.opensUrls = false;
    for (const MenuAction action :
         {MenuAction::openRecentURL, MenuAction::composeEmail, MenuAction::callRecentPhoneNumber})
        choose(action, QStringLiteral("x:"));
    EXPECT_EQ(desktop.messages.removeDuplicates(), 0);
    EXPECT_EQ(desktop.messages.size(), 3);
    QSet<QString> told;
    for (const TerminalProblem problem :
         {TerminalProblem::unusableCommand, TerminalProblem::noTerminal, TerminalProblem::noHelper,
          TerminalProblem::noCommandFile, TerminalProblem::notStarted}) {
        const bool hasDetail = problem >= TerminalProblem::noCommandFile;
        terminal.result = {problem, hasDetail ? QStringLiteral("the-detail") : QString()};
        choose(MenuAction::runTerminalCommand, QStringLiteral("ls"));
        EXPECT_EQ(desktop.lastMessage.contains(QStringLiteral("the-detail")), hasDetail);
        told.insert(desktop.lastMessage);
    }
    EXPECT_EQ(told.size(), 5);
}

TEST_F(MenuCommandsTest, WhatOthersDoIsTold) {
    QSignalSpy hints(&commands, &MenuCommands::disableHintsSectionChosen);
    QSignalSpy settings(&commands, &MenuCommands::openGeneralSettingsChosen);
    QSignalSpy quit(&commands, &MenuCommands::quitChosen);
    for (const MenuAction action : {MenuAction::none, MenuAction::disableHintsSection,
                                    MenuAction::openGeneralSettings, MenuAction::quit})
        choose(action);
    EXPECT_EQ(hints.size() + settings.size() * 10 + quit.size() * 100, 111);
}

} // namespace quorvel::testing
