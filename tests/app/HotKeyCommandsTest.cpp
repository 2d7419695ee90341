#include "FakeHotKeyCenter.h"
#include "FakeKeyPoster.h"
#include "FakeUi.h"
#include "MenuRig.h"

#include "app/HotKeyCommands.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class HotKeyCommandsTest : public ::testing::Test, protected MenuRig {
protected:
    static constexpr Modifiers controlShift = Modifier::control | Modifier::shift;
    static constexpr Modifiers controlSuper = Modifier::control | Modifier::command;

    HotKeyCommandsTest() { hotKeys.registerAll(); }

    bool press(char key, Modifiers modifiers) {
        pasted.clear();
        const bool isOurs = center.press(KeyPosition(key), modifiers);
        mainQueue.advance(2s);
        return isOurs;
    }
    QString pastedText() { return pasted.isEmpty() ? QString() : pasted.last().at(0).toString(); }
    static ClipboardSnapshotItem richItem(const QString& text) {
        ClipboardSnapshotItem item = textItem(text);
        item.payloadByType.append({QStringLiteral("text/html"), "<b>rich</b>"});
        return item;
    }
    qsizetype formsOnPasteboard() { return pasteboard.items().first().payloadByType.size(); }

    FakeHotKeyCenter center;
    FakeKeyPoster keyPoster;
    FakeMenuRenderer renderer;
    FocusTracker focus{workspace, mainQueue, 1};
    ClipboardTurns turns;
    PasteDelivery delivery{pasteboard, watcher, focus, workspace, keyPoster, turns, mainQueue};
    PasteEngine engine{delivery, history};
    GlobalHotKeys hotKeys{center, preferences, store};
    StatusMenuController menu{{.content = content,
                               .history = history,
                               .snippets = snippets,
                               .watcher = watcher,
                               .renderer = renderer,
                               .mainQueue = mainQueue,
                               .hints = {preferences, strings, [](int) { return 0; }}}};
    HotKeyCommands commands{{hotKeys, menu, content, history, engine, focus, keyPoster}};
    QSignalSpy pasted{&engine, &PasteEngine::pasted};
};

TEST_F(HotKeyCommandsTest, TheMenuOpensAndCloses) {
    EXPECT_TRUE(press('v', Modifier::command | Modifier::shift));
    EXPECT_TRUE(renderer.isOpen());
    EXPECT_EQ(menu.currentMenuVariant(), MenuVariant::pasteHotKey);
    press('v', Modifier::command | Modifier::shift);
    EXPECT_FALSE(renderer.isOpen());
}

TEST_F(HotKeyCommandsTest, TheNumberRowPastesTheRecentClipsAndNoOthers) {
    preferences.set(keys::clipboardHistoryLimit, 3);
    for (const char* text : {"d", "c", "b", "a"})
        insert(QString::fromLatin1(text));
    for (const char key : {'4', '5', '0'}) {
        EXPECT_TRUE(press(key, controlSuper));
        EXPECT_EQ(pasted.size(), 0) << key << ": beyond the visible ones";
    }
    press('3', controlSuper);
    EXPECT_EQ(pastedText(), QStringLiteral("c"));
    press('3', controlSuper);
    EXPECT_EQ(pastedText(), QStringLiteral("b")) << "the use has moved it";
    EXPECT_EQ(keyPoster.posts().size(), 2);
}

TEST_F(HotKeyCommandsTest, FurtherModifiersChooseHowTheClipIsPasted) {
    const struct {
        Modifiers further;
        qsizetype forms; ///< Of the clip, while the paste keys are pressed.
        bool isKept;     ///< What was on the clipboard before.
    } cases[]{
        {{}, 2, false},
        {Modifier::shift, 1, false},
        {Modifier::option, 2, true},
        {Modifier::shift | Modifier::option, 1, true},
    };
    for (const auto& [further, forms, isKept] : cases) {
        SCOPED_TRACE(further.toInt());
        history.insert(
            {.text = QStringLiteral("clip"), .payloadItems = {richItem(QStringLiteral("clip"))}});
        pasteboard.copyFromOutside(QStringLiteral("before"));
        center.press('1', controlSuper | further);
        EXPECT_EQ(formsOnPasteboard(), forms);
        EXPECT_EQ(pasteboard.string(), QStringLiteral("clip"));
        mainQueue.advance(2s);
        EXPECT_EQ(pasteboard.string() == u"before", isKept);
    }
    EXPECT_EQ(first().usageCount, 4);
}

TEST_F(HotKeyCommandsTest, ThePlainTextKeyPastesWhatIsOnTheClipboard) {
    pasteboard.copyFromOutside({richItem(QStringLiteral("known"))});
    history.insert({.text = QStringLiteral("known")});
    press('v', controlShift);
    EXPECT_EQ(pastedText(), QStringLiteral("known"));
    EXPECT_EQ(formsOnPasteboard(), 1);
    EXPECT_EQ(first().usageCount, 1) << "the use of the clip counts";

    pasteboard.copyFromOutside(QStringLiteral("unknown"));
    press('v', controlShift);
    EXPECT_EQ(pastedText(), QStringLiteral("unknown"));
    EXPECT_EQ(first().usageCount, 1);

    ClipboardSnapshotItem picture{{{pasteboardTypePng, "\x89PNG\r\n\x1a\n"}}};
    pasteboard.copyFromOutside({picture});
    const qsizetype before = keyPoster.posts().size();
    press('v', controlShift);
    EXPECT_EQ(pasted.size(), 0);
    EXPECT_EQ(keyPoster.posts().size(), before);
}

TEST_F(HotKeyCommandsTest, ThePlainTextKeyIsPassedOnForWhatWeMayNotRead) {
    QSignalSpy posted(&commands, &HotKeyCommands::keysPosted);
    insert(QStringLiteral("earlier"));
    pasteboard.copySecretFromOutside(QStringLiteral("secret"));
    press('v', controlShift);
    EXPECT_EQ(pasted.size(), 0);
    EXPECT_EQ(pasteboard.writeCount(), 0);
    EXPECT_EQ(keyPoster.posts().size(), 1);
    EXPECT_EQ(posted.size(), 1);
}

TEST_F(HotKeyCommandsTest, OthersAnswerTheirHotKeysWhileTheyAreThere) {
    int presses = 0;
    EXPECT_FALSE(press('x', controlShift));
    commands.setHandler(HotKeyId::cycleKeyboardLayout, [&] { ++presses; });
    EXPECT_TRUE(press('x', controlShift));
    EXPECT_EQ(presses, 1);
    commands.setHandler(HotKeyId::cycleKeyboardLayout, {});
    EXPECT_FALSE(press('x', controlShift));
}

} // namespace quorvel::testing
