#include "desktop/MenuDesktopTest.h"

namespace quorvel {

namespace {

using namespace std::chrono_literals;

class MenuAndPasteTest : public MenuDesktopTest {};

TEST_F(MenuAndPasteTest, aClickOnTheTrayIconOpensTheMenuAlsoWhenTheTrayComesLate) {
    begin(TrayHost::none);
    EXPECT_EQ(status()[QStringLiteral("tray")].toString(), QStringLiteral("waiting"));
    desktop().startTray(TrayHost::tint2);
    ASSERT_TRUE(waitUntil([&] { return !embeddedIconPosition().isEmpty(); }));
    EXPECT_EQ(status()[QStringLiteral("tray")].toString(), QStringLiteral("xembed"));
    EXPECT_TRUE(menuOpens([&] { clickAt(embeddedIconPosition()); }));
    EXPECT_TRUE(menuCloses([&] { press(QStringLiteral("Escape")); }));
}

TEST_F(MenuAndPasteTest, aPanelThatSpeaksStatusNotifierGetsTheIconToo) {
    startDesktop(TrayHost::xfce4Panel);
    desktop().setVariable(QStringLiteral("QUORVEL_MENU_TIMINGS"), QStringLiteral("1"));
    ASSERT_TRUE(startProgram()) << program().errors().constData();
    ASSERT_TRUE(waitUntil([&] {
        return status()[QStringLiteral("tray")].toString() == QStringLiteral("statusnotifier");
    }));
    const QString picture = path(QStringLiteral("panel.png"));
    QStringList icon;
    const auto iconStays = [&] {
        desktop().screenshot(picture);
        return std::exchange(icon, iconIn(picture)) == icon && !icon.isEmpty();
    };
    ASSERT_TRUE(waitUntil(iconStays)) << "the panel lays itself out at its leisure";
    EXPECT_TRUE(menuOpens([&] { clickAt(icon); }));
    EXPECT_TRUE(menuCloses([&] { press(QStringLiteral("Escape")); }));
}

TEST_F(MenuAndPasteTest, theHotKeyOpensAndClosesTheMenuAndLeavesTheFocusAlone) {
    begin(TrayHost::none);
    copy({QStringLiteral("a"), QStringLiteral("b")});
    const auto terminal = startInFront(QStringLiteral("xterm"), {}, QStringLiteral("XTerm"));
    const QByteArray focus = xdotool({QStringLiteral("getwindowfocus")}).output;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
        EXPECT_EQ(xdotool({QStringLiteral("getwindowfocus")}).output, focus);
        EXPECT_TRUE(menuCloses([&] { press(QStringLiteral("super+shift+v")); }));
    }
}

TEST_F(MenuAndPasteTest, aSecondStartEndsAndShowsTheMenuOfTheFirst) {
    begin(TrayHost::none);
    EXPECT_TRUE(menuOpens([&] {
        const ProgramResult second = desktop().run(QStringLiteral(QUORVEL_PROGRAM));
        EXPECT_EQ(second.exitCode, 0);
        EXPECT_TRUE(second.output.isEmpty());
    }));
    EXPECT_TRUE(program().isRunning());
}

TEST_F(MenuAndPasteTest, chosenClipsArriveInTheTerminalOnceEach) {
    begin(TrayHost::none);
    copy({QStringLiteral("third\n"), QStringLiteral("second\n"), QStringLiteral("first\n")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    // Each choice brings the pasted clip to the top, so the third one always is the oldest.
    const QByteArrayList expected{"third\n", "second\n", "first\n", "third\n"};
    for (qsizetype i = 0; i < expected.size(); ++i) {
        ASSERT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
        press(QStringLiteral("super+3"));
        const QByteArray soFar = expected.mid(0, i + 1).join();
        EXPECT_TRUE(waitUntil([&] { return content(file) == soFar; })) << content(file).constData();
    }
    EXPECT_EQ(clips().size(), 3) << "our own writes are no copies";
}

TEST_F(MenuAndPasteTest, chosenClipsArriveInEditors) {
    begin(TrayHost::none);
    const struct {
        const char* program;
        const char* windowClass;
        QStringList options;
    } editors[] = {{"mousepad", "mousepad", {QStringLiteral("--disable-server")}},
                   {"featherpad", "featherpad", {}}};
    for (const auto& editor : editors) {
        const QString file = path(QString::fromLatin1(editor.program) + QStringLiteral(".txt"));
        put(file, {});
        const QString text = QStringLiteral("pasted ✓ into ") + QString::fromLatin1(editor.program);
        copy({text, QStringLiteral("newer")});
        const auto child =
            startInFront(QString::fromLatin1(editor.program), editor.options + QStringList(file),
                         QString::fromLatin1(editor.windowClass));
        ASSERT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
        xdotool({QStringLiteral("key"), QStringLiteral("Down"), QStringLiteral("Return")});
        EXPECT_TRUE(waitUntil([&] {
            press(QStringLiteral("ctrl+s"));
            return content(file).trimmed() == text.toUtf8();
        })) << editor.program
            << ": " << content(file).constData();
    }
}

TEST_F(MenuAndPasteTest, aClipChosenWithControlIsEditedAndThenArrives) {
    begin(TrayHost::none);
    copy({QStringLiteral("edited text"), QStringLiteral("newer")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    const QByteArray front = xdotool({QStringLiteral("getactivewindow")}).output;
    const auto editorHasTheKeyboard = [&] {
        const QByteArray active = xdotool({QStringLiteral("getactivewindow")}).output.trimmed();
        const QByteArray title =
            xdotool({QStringLiteral("getwindowname"), QString::fromLatin1(active)}).output;
        return title == "Edit and Paste\n";
    };
    const auto edit = [&] {
        ASSERT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
        xdotool({QStringLiteral("key"), QStringLiteral("Down")});
        press(QStringLiteral("ctrl+Return"));
        ASSERT_TRUE(waitUntil(editorHasTheKeyboard));
        xdotool({QStringLiteral("type"), QStringLiteral("well ")});
        press(QStringLiteral("ctrl+End"));
        press(QStringLiteral("Return"));
    };
    const auto terminalHasTheKeyboard = [&] {
        return xdotool({QStringLiteral("getactivewindow")}).output == front;
    };
    edit();
    press(QStringLiteral("Escape"));
    EXPECT_TRUE(waitUntil(terminalHasTheKeyboard));
    EXPECT_EQ(newestText(), QStringLiteral("newer"));
    EXPECT_EQ(content(file), "");

    edit();
    press(QStringLiteral("ctrl+Return"));
    EXPECT_TRUE(waitUntil([&] { return content(file) == "well edited text\n"; }))
        << content(file).constData();
    EXPECT_TRUE(terminalHasTheKeyboard());
    EXPECT_EQ(newestText(), QStringLiteral("edited text"));
    EXPECT_EQ(clips().size(), 2) << "what was edited is no copy";
}

TEST_F(MenuAndPasteTest, theControlToolPastesIntoTheProgramInFront) {
    begin(TrayHost::none);
    copy({QStringLiteral("from the command line\n"), QStringLiteral("newer")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    EXPECT_EQ(control({QStringLiteral("paste"), QStringLiteral("2")}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return content(file) == "from the command line\n"; }));
    const ProgramResult wrong = control({QStringLiteral("paste"), QStringLiteral("99")});
    EXPECT_NE(wrong.exitCode, 0);
    EXPECT_TRUE(wrong.errors.contains("99"));
}

} // namespace

} // namespace quorvel
