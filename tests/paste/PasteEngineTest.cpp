#include "CoreRig.h"
#include "FakeKeyPoster.h"

#include "paste/PasteEngine.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

namespace {
constexpr qint64 ownProcess = 1;

RunningApplication program(qint64 process, quint64 window,
                           ApplicationKind kind = ApplicationKind::ordinary) {
    RunningApplication application;
    application.processIdentifier = process;
    application.window = window;
    application.kind = kind;
    return application;
}
} // namespace

class PasteEngineTest : public ::testing::Test, protected CoreRig {
protected:
    void SetUp() override {
        watcher.start();
        focus.start();
        workspace.setFrontmost(program(7, 70), 71);
    }
    QUuid copied(const QList<ClipboardSnapshotItem>& items) {
        pasteboard.copyFromOutside(items);
        mainQueue.settle();
        return first().id;
    }
    QUuid copied(const QString& text) { return copied({textItem(text)}); }
    void paste(const QUuid& id, PasteOption option = PasteOption::normal) {
        engine.pasteEntry(*history.entry(id), option);
    }

    FakeKeyPoster keyPoster;
    FocusTracker focus{workspace, mainQueue, ownProcess};
    ClipboardTurns turns;
    PasteDelivery delivery{pasteboard, watcher, focus, workspace, keyPoster, turns, mainQueue};
    PasteEngine engine{delivery, history};
};

TEST_F(PasteEngineTest, WritesAtOnceAndPressesKeysInTheTargetLater) {
    const QUuid old = copied(QStringLiteral("old"));
    copied(QStringLiteral("new"));
    paste(old);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("old"));
    EXPECT_EQ(workspace.activations(), QList<FocusTarget>({{7, 70, 71}}));
    mainQueue.advance(79ms);
    EXPECT_TRUE(keyPoster.posts().isEmpty());
    mainQueue.advance(1ms);
    EXPECT_EQ(keyPoster.posts(), QList<std::optional<FocusTarget>>({FocusTarget{7, 70, 71}}));
    EXPECT_EQ(texts().first(), QStringLiteral("old"));
    EXPECT_EQ(first().usageCount, 1);
}

TEST_F(PasteEngineTest, ItsWriteIsNotRecorded) {
    const QUuid id = copied(QStringLiteral("x"));
    QSignalSpy captured(&history, &ClipboardHistory::entryCaptured);
    for (int i = 0; i < 14; ++i)
        paste(id);
    mainQueue.settle();
    mainQueue.advance(10s);
    EXPECT_TRUE(captured.isEmpty());
}

TEST_F(PasteEngineTest, EveryCapturedFormIsPastedWithTheText) {
    const ClipboardSnapshotItem rich{
        {{QStringLiteral("text/html"), "<b>x</b>"},
         {QStringLiteral("UTF8_STRING"), "x"},
         {QStringLiteral("application/x-own"), QByteArray("\0\1", 2)}}};
    paste(copied({rich}));
    const auto written = pasteboard.items().first().payloadByType;
    EXPECT_EQ(written.mid(0, 3), rich.payloadByType);
    EXPECT_EQ(written.at(3), (PasteboardRepresentation{pasteboardTypeString, "x"}));
}

TEST_F(PasteEngineTest, ATextThatIsToBeEditedIsPastedWhenThatIsDone) {
    const QList<ClipboardSnapshotItem> rich{
        {{{QStringLiteral("text/html"), "<b>x</b>"}, {QStringLiteral("UTF8_STRING"), "x"}}}};
    const QUuid id = copied(rich);
    copied(QStringLiteral("newer"));
    std::optional<EditRequest> request;
    QObject::connect(&engine, &PasteEngine::editRequested,
                     [&](const EditRequest& asked) { request = asked; });
    paste(id, PasteOption::withEdit);
    mainQueue.advance(1s);
    ASSERT_TRUE(request.has_value());
    EXPECT_TRUE(editorState(*request).supportsRichPaste);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("newer"));
    EXPECT_EQ(texts().first(), QStringLiteral("newer")) << "not used yet";
    EXPECT_TRUE(keyPoster.posts().isEmpty());

    QSignalSpy pasted(&engine, &PasteEngine::pasted);
    QSignalSpy captured(&history, &ClipboardHistory::entryCaptured);
    engine.pasteEdited(*request, {.text = QStringLiteral("x2"), .pasteAsPlainText = false});
    EXPECT_EQ(pasteboard.items(), QList{textItem(QStringLiteral("x2"))});
    mainQueue.advance(1s);
    EXPECT_EQ(keyPoster.posts(), QList<std::optional<FocusTarget>>({FocusTarget{7, 70, 71}}));
    EXPECT_EQ(pasted, QList<QVariantList>{{QStringLiteral("x2")}});
    EXPECT_EQ(first().text, QStringLiteral("x"));
    EXPECT_EQ(first().usageCount, 1);
    EXPECT_TRUE(captured.isEmpty());
    pasteboard.fetchFromOutside();

    engine.pasteEdited(*request, {.text = QStringLiteral("x"), .pasteAsPlainText = false});
    EXPECT_EQ(pasteboard.items().first().payloadByType.mid(0, 2), rich.first().payloadByType);
}

TEST_F(PasteEngineTest, WithoutCapturedFormsTheTextOrThePictureIsPasted) {
    history.insert({.text = QStringLiteral("stored")});
    paste(first().id);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("stored"));
    mainQueue.advance(5s);
    const QByteArray png("\x89PNG\r\n\x1a\n...", 11);
    history.insert({.imagePNGData = png});
    paste(first().id);
    EXPECT_EQ(pasteboard.imagePng(), png);
}

TEST_F(PasteEngineTest, OnlyOrdinaryProgramsOfOthersBecomeTargets) {
    const QUuid id = copied(QStringLiteral("x"));
    workspace.setFrontmost(program(ownProcess, 10), 11);
    workspace.setFrontmost(program(8, 80, ApplicationKind::overlay), 81);
    workspace.setFrontmost(std::nullopt);
    paste(id);
    mainQueue.advance(1s);
    EXPECT_EQ(keyPoster.posts(), QList<std::optional<FocusTarget>>({FocusTarget{7, 70, 71}}));
}

TEST_F(PasteEngineTest, ATargetThatHasGoneIsReplacedByWhoeverHasTheFocus) {
    const QUuid id = copied(QStringLiteral("x"));
    workspace.end(70);
    paste(id);
    EXPECT_TRUE(workspace.activations().isEmpty());
    mainQueue.advance(119ms);
    EXPECT_TRUE(keyPoster.posts().isEmpty());
    mainQueue.advance(1ms);
    EXPECT_EQ(keyPoster.posts(), QList<std::optional<FocusTarget>>({std::nullopt}));
}

TEST_F(PasteEngineTest, WithoutPermissionItSaysSoOnceAndLeavesTheClipOnThePasteboard) {
    const QUuid id = copied(QStringLiteral("x"));
    QSignalSpy missing(&delivery, &PasteDelivery::permissionMissing);
    const auto pasteTrusted = [&](bool trusted) {
        keyPoster.setTrusted(trusted);
        paste(id);
        mainQueue.advance(1s);
    };
    pasteTrusted(false);
    pasteTrusted(false);
    EXPECT_EQ(missing.size(), 1);
    EXPECT_TRUE(keyPoster.posts().isEmpty());
    EXPECT_EQ(pasteboard.string(), QStringLiteral("x"));
    pasteTrusted(true);
    pasteTrusted(false);
    EXPECT_EQ(missing.size(), 2) << "told again after it had worked";
}

TEST_F(PasteEngineTest, PlainTextDropsEveryOtherForm) {
    const ClipboardSnapshotItem rich{
        {{QStringLiteral("text/html"), "<b>x</b>"}, {pasteboardTypeString, "x"}}};
    paste(copied({rich}), PasteOption::plainText);
    EXPECT_EQ(pasteboard.items(), QList<ClipboardSnapshotItem>{textItem(QStringLiteral("x"))});
    mainQueue.advance(1s);
    EXPECT_EQ(keyPoster.posts().size(), 1);
    EXPECT_EQ(first().usageCount, 1);
}

TEST_F(PasteEngineTest, APictureIsNeverPastedAsText) {
    history.insert({.text = QStringLiteral("file name"), .imagePNGData = "png"});
    paste(first().id, PasteOption::plainText);
    mainQueue.advance(1s);
    EXPECT_EQ(pasteboard.writeCount(), 0);
    EXPECT_TRUE(keyPoster.posts().isEmpty());
    EXPECT_EQ(first().usageCount, 0);
    paste(first().id, PasteOption::withEdit);
    mainQueue.advance(1s);
    EXPECT_EQ(pasteboard.items(), pasteboardItems(first())) << "as it is: it is no text to edit";
    EXPECT_EQ(keyPoster.posts().size(), 1);
}

TEST_F(PasteEngineTest, KeepingTheClipboardPutsItBackUnlessSomethingNewIsThere) {
    const QUuid clip = copied(QStringLiteral("clip"));
    const ClipboardSnapshotItem rich{
        {{QStringLiteral("text/html"), "<i>before</i>"}, {pasteboardTypeString, "before"}}};
    const struct {
        const char* copiedMeanwhile; ///< Null for nothing.
        bool isTrusted;
        const char* afterwards;
    } cases[]{{nullptr, true, "before"}, {"newer", true, "newer"}, {nullptr, false, "clip"}};
    for (const auto& [copiedMeanwhile, isTrusted, afterwards] : cases) {
        copied({rich});
        keyPoster.setTrusted(isTrusted);
        QSignalSpy captured(&history, &ClipboardHistory::entryCaptured);
        paste(clip, PasteOption::keepClipboard);
        mainQueue.advance(119ms);
        EXPECT_EQ(pasteboard.string(), QStringLiteral("clip"));
        if (copiedMeanwhile)
            copied(QString::fromLatin1(copiedMeanwhile));
        mainQueue.advance(1ms);
        mainQueue.settle();
        mainQueue.advance(3s);
        EXPECT_EQ(pasteboard.string(), QString::fromLatin1(afterwards));
        EXPECT_EQ(pasteboard.items().first() == rich, !copiedMeanwhile && isTrusted);
        EXPECT_EQ(captured.size(), copiedMeanwhile ? 1 : 0);
    }
}

TEST_F(PasteEngineTest, ACopyThatIsStillArrivingIsKeptInsteadOrComesBack) {
    const QUuid clip = copied(QStringLiteral("clip"));
    const struct {
        std::chrono::milliseconds begin; ///< Of the copy, before or after the paste.
        const char* text;
    } cases[]{{-20ms, "copied before the paste"}, {60ms, "copied after the paste"}};
    for (const auto& [begin, text] : cases) {
        copied(QStringLiteral("older"));
        if (begin < 0ms)
            pasteboard.beginCopyFromOutside();
        paste(clip, PasteOption::keepClipboard);
        mainQueue.advance(60ms);
        if (begin > 0ms) {
            pasteboard.beginCopyFromOutside();
            mainQueue.advance(60ms);
        }
        pasteboard.finishCopyFromOutside(QString::fromLatin1(text));
        mainQueue.advance(3s);
        EXPECT_EQ(pasteboard.string(), QString::fromLatin1(text));
        EXPECT_EQ(texts().first(), QString::fromLatin1(text));
    }
}

TEST_F(PasteEngineTest, WhatWasOnTheClipboardComesBackOnlyAfterTheKeys) {
    const QUuid clip = copied(QStringLiteral("clip"));
    copied(QStringLiteral("before"));
    keyPoster.holdAnswers();
    const struct {
        PostOutcome outcome;
        const char* afterwards;
    } cases[]{{PostOutcome::posted, "before"}, {PostOutcome::focusElsewhere, "clip"}};
    for (const auto& [outcome, afterwards] : cases) {
        keyPoster.setOutcome(outcome);
        paste(clip, PasteOption::keepClipboard);
        mainQueue.advance(300ms);
        EXPECT_EQ(pasteboard.string(), QStringLiteral("clip"));
        keyPoster.answer();
        EXPECT_EQ(pasteboard.string(), QString::fromLatin1(afterwards));
        pasteboard.fetchFromOutside();
    }
}

TEST_F(PasteEngineTest, APasteWaitsUntilTheOneBeforeHasArrived) {
    const auto ask = [this](const char* text) { engine.pasteText(QString::fromLatin1(text)); };
    ask("a");
    ask("b");
    mainQueue.advance(500ms);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("a")) << "its target is slow to ask";
    pasteboard.fetchFromOutside();
    EXPECT_EQ(pasteboard.string(), QStringLiteral("b"));
    ask("c");
    mainQueue.advance(80ms + PasteDelivery::fetchPatience);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("c")) << "its target never asks";
    keyPoster.setOutcome(PostOutcome::focusElsewhere);
    ask("d");
    mainQueue.advance(160ms + PasteDelivery::fetchPatience);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("d")) << "no keys were pressed";
    EXPECT_EQ(keyPoster.posts().size(), 4);
}

TEST_F(PasteEngineTest, APasteThatHadToWaitDoesNotFollowTheUserIntoAnotherProgram) {
    QSignalSpy posted(&delivery, &PasteDelivery::keysPosted);
    engine.pasteText(QStringLiteral("first"));
    engine.pasteText(QStringLiteral("second"));
    mainQueue.advance(90ms);
    workspace.setFrontmost(program(8, 80), 81);
    mainQueue.advance(PasteDelivery::fetchPatience + 100ms);
    EXPECT_EQ(keyPoster.posts().size(), 1);
    EXPECT_EQ(workspace.activations().size(), 1);
    EXPECT_EQ(posted.last().first().value<PostOutcome>(), PostOutcome::focusElsewhere);
    EXPECT_EQ(pasteboard.string(), QStringLiteral("second")) << "to be pasted by hand";
    engine.pasteText(QStringLiteral("third"));
    mainQueue.advance(90ms);
    EXPECT_EQ(keyPoster.posts().last(), (FocusTarget{8, 80, 81}));
}

TEST(FocusTracker, PollsWhereChangesAreNotAnnounced) {
    CoreRig rig;
    rig.workspace.setAnnouncesChanges(false);
    FocusTracker focus(rig.workspace, rig.mainQueue, ownProcess);
    focus.start();
    rig.workspace.setFrontmost(program(7, 70), 71);
    EXPECT_FALSE(focus.target().has_value());
    rig.mainQueue.advance(FocusTracker::pollInterval);
    EXPECT_EQ(focus.target(), (FocusTarget{7, 70, 71}));
    focus.stop();
    rig.workspace.setFrontmost(program(8, 80), 81);
    rig.mainQueue.advance(10s);
    EXPECT_EQ(focus.target(), (FocusTarget{7, 70, 71}));
}

} // namespace quorvel::testing
