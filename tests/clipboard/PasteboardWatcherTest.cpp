#include "CoreRig.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class PasteboardWatcherTest : public ::testing::TestWithParam<bool>, protected CoreRig {
protected:
    void SetUp() override {
        pasteboard.setAnnouncesChanges(GetParam());
        watcher.start();
    }
    void copy(const QString& text) {
        pasteboard.copyFromOutside({textItem(text)});
        mainQueue.settle();
    }
    qint64 writeOurs(const QString& text) {
        const qint64 count = pasteboard.write({textItem(text)});
        watcher.markOwnWrite(count);
        return count;
    }
    void letAPollPass() {
        mainQueue.settle();
        mainQueue.advance(PasteboardWatcher::pollInterval);
    }
};

INSTANTIATE_TEST_SUITE_P(AnnouncedAndPolled, PasteboardWatcherTest, ::testing::Bool());

TEST_P(PasteboardWatcherTest, RecordsACopyWithItsFormsAndSource) {
    RunningApplication editor;
    editor.name = QStringLiteral("Editor");
    workspace.setFrontmost(editor);
    const ClipboardSnapshotItem rich{
        {{QStringLiteral("text/html"), "<b>x</b>"}, {pasteboardTypeString, "x"}}};
    pasteboard.copyFromOutside({rich});
    letAPollPass();
    ASSERT_EQ(texts(), QStringList(QStringLiteral("x")));
    EXPECT_EQ(first().payloadItems, QList{rich});
    EXPECT_EQ(first().sourceAppName, QStringLiteral("Editor"));
    EXPECT_FALSE(first().sourceAppBundleIdentifier.has_value());
}

TEST_P(PasteboardWatcherTest, OurOwnWritesAreNotRecorded) {
    copy(QStringLiteral("theirs"));
    letAPollPass();
    writeOurs(QStringLiteral("ours"));
    letAPollPass();
    EXPECT_EQ(texts(), QStringList(QStringLiteral("theirs")));
    EXPECT_TRUE(watcher.ignoredPasteboardChangeCounts().isEmpty());
}

TEST_P(PasteboardWatcherTest, OnlyTheTwelveHighestOwnCountsAreRemembered) {
    QList<qint64> counts;
    for (int i = 0; i < 14; ++i)
        counts.append(writeOurs(QString::number(i)));
    const QSet<qint64> expected(counts.cbegin() + 2, counts.cend());
    EXPECT_EQ(watcher.ignoredPasteboardChangeCounts(), expected);
}

TEST_P(PasteboardWatcherTest, ACopyDuringSuppressionIsTakenAfterwards) {
    watcher.suppressCapture(1200ms);
    copy(QStringLiteral("late"));
    letAPollPass();
    EXPECT_TRUE(texts().isEmpty());
    mainQueue.advance(1200ms);
    EXPECT_EQ(texts(), QStringList(QStringLiteral("late")));
}

TEST_P(PasteboardWatcherTest, NothingUsableRecordsNothing) {
    copy({});
    pasteboard.copyFromOutside({{{{QStringLiteral("application/x-thing"), "bytes"}}}});
    letAPollPass();
    EXPECT_TRUE(texts().isEmpty());
    EXPECT_EQ(watcher.pasteboardChangeCount(), pasteboard.changeCount());
}

TEST_P(PasteboardWatcherTest, StoppedIsStopped) {
    watcher.stop();
    copy(QStringLiteral("x"));
    letAPollPass();
    EXPECT_TRUE(texts().isEmpty());
}

TEST(PasteboardWatcher, WhatAWriteOvertookIsRecordedUnlessItCameDuringSuppression) {
    CoreRig rig;
    rig.watcher.start();
    const auto copyOvertaken = [&](const QString& text) {
        rig.pasteboard.beginCopyFromOutside();
        rig.watcher.markOwnWrite(rig.pasteboard.write({textItem(QStringLiteral("ours"))}));
        rig.pasteboard.finishCopyFromOutside(text);
        rig.mainQueue.settle();
    };
    copyOvertaken(QStringLiteral("theirs"));
    rig.watcher.suppressCapture(1200ms);
    copyOvertaken(QStringLiteral("part of an answer"));
    rig.mainQueue.advance(3s);
    EXPECT_EQ(rig.texts(), QStringList(QStringLiteral("theirs")));
    EXPECT_EQ(rig.pasteboard.string(), QStringLiteral("ours"));
}

TEST(PasteboardWatcher, WhatASuppressionFindsIsNeverTaken) {
    CoreRig rig;
    rig.pasteboard.setAnnouncesChanges(false);
    rig.watcher.start();
    rig.pasteboard.copyFromOutside({textItem(QStringLiteral("there before"))});
    rig.watcher.suppressCapture(1200ms);
    rig.mainQueue.advance(3s);
    EXPECT_TRUE(rig.texts().isEmpty());
}

} // namespace quorvel::testing
