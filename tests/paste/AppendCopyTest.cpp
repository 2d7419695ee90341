#include "CoreRig.h"
#include "FakeSelectedText.h"

#include "paste/AppendCopy.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

using Outcome = SelectedTextResult::Outcome;

class AppendCopyTest : public ::testing::Test, protected CoreRig {
protected:
    void SetUp() override {
        watcher.start();
        QObject::connect(&appendCopy, &AppendCopy::finished,
                         [this](const AppendResult& result) { results.append(result.outcome); });
    }
    void copied(const QString& text) {
        pasteboard.copyFromOutside(text);
        mainQueue.settle();
    }
    void append(const QString& selected) {
        appendCopy.append();
        selectedText.answer(selected);
        mainQueue.advance(3s);
    }

    FakeSelectedText selectedText{pasteboard};
    FocusTracker focus{workspace, mainQueue, 1};
    ClipboardTurns turns;
    SelectionTaker taker{selectedText, pasteboard, watcher, focus, turns};
    AppendCopy appendCopy{taker, pasteboard, watcher, history};
    QList<Outcome> results;
};

TEST_F(AppendCopyTest, TheWholeIsOneClipThatGrowsAndWhatWasThereBeforeStays) {
    append(QStringLiteral("alone"));
    EXPECT_EQ(texts(), QStringList({QStringLiteral("alone")}));
    copied(QStringLiteral("a"));
    append(QStringLiteral("b"));
    EXPECT_EQ(pasteboard.items(), QList{textItem(QStringLiteral("a\nb"))});
    EXPECT_EQ(texts(),
              QStringList({QStringLiteral("a\nb"), QStringLiteral("a"), QStringLiteral("alone")}));
    append(QStringLiteral("c"));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("a\nb\nc"));
    EXPECT_EQ(texts(), QStringList({QStringLiteral("a\nb\nc"), QStringLiteral("a"),
                                    QStringLiteral("alone")}));
    history.togglePin(first().id);
    append(QStringLiteral("d"));
    EXPECT_EQ(texts().mid(0, 2),
              QStringList({QStringLiteral("a\nb\nc\nd"), QStringLiteral("a\nb\nc")}))
        << "the user keeps the one before";
    copied(QStringLiteral("copied after that"));
    EXPECT_EQ(texts().first(), QStringLiteral("copied after that"));
    EXPECT_EQ(results, QList<Outcome>(4, Outcome::taken));
}

TEST_F(AppendCopyTest, WhenNothingComesOfItTheClipboardIsAsBefore) {
    const ClipboardSnapshotItem rich{
        {{QStringLiteral("text/html"), "<b>x</b>"}, {pasteboardTypeString, "x"}}};
    const ClipboardSnapshotItem picture{{{pasteboardTypePng, "\x89PNG\r\n\x1a\n"}}};
    const struct {
        Outcome outcome;
        QList<ClipboardSnapshotItem> copied;
    } cases[]{{Outcome::nothingSelected, {}},
              {Outcome::nothingSelected, {picture}},
              {Outcome::focusElsewhere, {}},
              {Outcome::unavailable, {}}};
    pasteboard.copyFromOutside({rich});
    mainQueue.settle();
    for (const auto& [outcome, copied] : cases) {
        results.clear();
        appendCopy.append();
        selectedText.refuse(outcome, copied);
        mainQueue.advance(3s);
        EXPECT_EQ(results, QList{outcome});
        EXPECT_EQ(pasteboard.items(), QList{rich});
        EXPECT_EQ(texts(), QStringList(QStringLiteral("x")));
    }
}

TEST_F(AppendCopyTest, TheNewestClipServesWhenTheClipboardCannotBeRead) {
    copied(QStringLiteral("clip"));
    pasteboard.copySecretFromOutside(QStringLiteral("secret"));
    mainQueue.settle();
    append(QStringLiteral("more"));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("clip\nmore"));
}

TEST_F(AppendCopyTest, OneAtATimeAndOfTheProgramInFront) {
    RunningApplication application;
    application.processIdentifier = 7;
    application.window = 70;
    workspace.setFrontmost(application, 71);
    appendCopy.append();
    appendCopy.append();
    EXPECT_EQ(selectedText.lastTarget, (FocusTarget{7, 70, 71}));
    selectedText.answer(QStringLiteral("once"));
    EXPECT_FALSE(selectedText.isAsked());
    EXPECT_EQ(pasteboard.string(), QStringLiteral("once"));
}

TEST_F(AppendCopyTest, WaitsForAPasteThatNeedsTheClipboard) {
    copied(QStringLiteral("old"));
    bool isPasting = true;
    turns.ask([&] { pasteboard.write({textItem(QStringLiteral("pasted"))}); });
    appendCopy.append();
    turns.ask([&] { isPasting = false; });
    EXPECT_FALSE(selectedText.isAsked());
    turns.end();
    selectedText.answer(QStringLiteral("selected"));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("pasted\nselected"));
    EXPECT_FALSE(isPasting) << "the next in turn";
}

} // namespace quorvel::testing
