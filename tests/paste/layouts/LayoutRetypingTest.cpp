#include "CoreRig.h"
#include "FakeKeyPoster.h"
#include "FakeKeyboardLayouts.h"
#include "FakeSelectedText.h"

#include "paste/layouts/LayoutRetyping.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

using Outcome = SelectedTextResult::Outcome;

class LayoutRetypingTest : public ::testing::Test, protected CoreRig {
protected:
    void SetUp() override {
        watcher.start();
        focus.start();
        goTo(70);
        pasteboard.copyFromOutside(QStringLiteral("ghbdtn"));
        mainQueue.settle();
        QObject::connect(&retyping, &LayoutRetyping::noSelection,
                         [this](Outcome outcome) { refused.append(outcome); });
    }
    void goTo(quint64 window) {
        RunningApplication application;
        application.processIdentifier = qint64(window);
        application.window = window;
        workspace.setFrontmost(application, window);
    }
    /// What was pasted; empty when nothing was.
    QString press(const std::function<void()>& answer) {
        const qsizetype before = keyPoster.posts().size();
        retyping.retype();
        answer();
        mainQueue.advance(100ms);
        const QString pasted = pasteboard.string();
        mainQueue.advance(3s);
        return keyPoster.posts().size() > before ? pasted : QString();
    }
    QString pressWith(const QString& selected) {
        return press([&] { selectedText.answer(selected); });
    }
    QString pressWithout(Outcome outcome) {
        return press([&] { selectedText.refuse(outcome); });
    }

    FakeKeyPoster keyPoster;
    FakeSelectedText selectedText{pasteboard};
    FakeKeyboardLayouts layouts{
        {FakeKeyboardLayouts::layout(QStringLiteral("us"),
                                     QStringLiteral("qwertyuiopasdfghjklzxcvbnm")),
         FakeKeyboardLayouts::layout(QStringLiteral("ru"),
                                     QStringLiteral("йцукенгшщзфывапролдячсмить"))}};
    FocusTracker focus{workspace, mainQueue, 1};
    ClipboardTurns turns;
    PasteDelivery delivery{pasteboard, watcher, focus, workspace, keyPoster, turns, mainQueue};
    PasteEngine engine{delivery, history};
    SelectionTaker taker{selectedText, pasteboard, watcher, focus, turns};
    KeyboardLayoutVariants variants{layouts};
    LayoutCycle cycle{variants, preferences};
    LayoutRetyping retyping{{taker, cycle, layouts, engine, pasteboard, history}};
    QList<Outcome> refused;
};

TEST_F(LayoutRetypingTest, TheSelectionIsReplacedAndTheClipboardKept) {
    EXPECT_EQ(pressWith(QStringLiteral("rfr")), QStringLiteral("как"));
    EXPECT_EQ(layouts.activeID(), QStringLiteral("ru"));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("ghbdtn"));
    EXPECT_EQ(texts(), QStringList(QStringLiteral("ghbdtn")));
    EXPECT_EQ(pressWith(QStringLiteral("как")), QStringLiteral("rfr"));
}

TEST_F(LayoutRetypingTest, WithoutASelectionTheLastCopyIsMeantAndThenWhatWasTyped) {
    EXPECT_EQ(pressWithout(Outcome::nothingSelected), QStringLiteral("привет"));
    EXPECT_EQ(pressWithout(Outcome::nothingSelected), QString());
    EXPECT_EQ(refused, QList{Outcome::nothingSelected}) << "it would be typed a second time";
    selectedText.beforeCaret = QStringLiteral("hi привет");
    EXPECT_EQ(pressWithout(Outcome::nothingSelected), QStringLiteral("ghbdtn"));
    EXPECT_EQ(pasteboard.string(), QStringLiteral("ghbdtn")) << "as before";
    selectedText.beforeCaret = QStringLiteral("hi ghbdtn");
    EXPECT_EQ(pressWithout(Outcome::nothingSelected), QStringLiteral("привет"));
    goTo(80);
    EXPECT_EQ(pressWithout(Outcome::unavailable), QStringLiteral("ghbdtn"));
    pasteboard.copyFromOutside(QStringLiteral("rfr"));
    mainQueue.settle();
    EXPECT_EQ(pressWithout(Outcome::nothingSelected), QStringLiteral("как"));
}

TEST_F(LayoutRetypingTest, NothingIsTypedIntoAProgramThatTheUserWentToMeanwhile) {
    EXPECT_EQ(pressWithout(Outcome::focusElsewhere), QString());
    EXPECT_EQ(refused, QList{Outcome::focusElsewhere});
    EXPECT_EQ(press([&] {
                  goTo(80);
                  selectedText.answer(QStringLiteral("rfr"));
              }),
              QString());
    EXPECT_EQ(pasteboard.string(), QStringLiteral("как")) << "to be pasted by hand";
}

} // namespace quorvel::testing
