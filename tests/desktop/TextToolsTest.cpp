#include "desktop/MenuDesktopTest.h"

#include <QFileInfo>

namespace quorvel {

namespace {

/// What is done with texts, in real programs by real keys.
class TextToolsTest : public MenuDesktopTest {
protected:
    QString file() { return path(QStringLiteral("note.txt")); }

    /// An editor with this text in front; it is saved at each look at it.
    std::unique_ptr<ChildProgram> startEditor(const QByteArray& text) {
        put(file(), text);
        return startInFront(QStringLiteral("mousepad"),
                            {QStringLiteral("--disable-server"), file()},
                            QStringLiteral("Mousepad"));
    }
    bool editorHolds(const QByteArray& text) {
        return waitUntil([&] {
            press(QStringLiteral("ctrl+s"));
            return content(file()).trimmed() == text;
        });
    }
    void select(const QString& keys) {
        for (const QString& key : keys.split(u' '))
            press(key);
    }

    /// Whether a wide, low window of the program is there: a notice.
    bool showsNotice() {
        return waitUntil([&] {
            const QByteArray windows =
                xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                         QStringLiteral("--pid"), QString::number(program().pid())})
                    .output;
            return windows.count('\n') > 0;
        });
    }

    /// In the submenu of the newest clip, so many rows below the first one.
    void chooseInSubmenu(int downs) {
        ASSERT_TRUE(menuOpens([&] { press(QStringLiteral("super+shift+v")); }));
        xdotool({QStringLiteral("keydown"), QStringLiteral("alt")});
        press(QStringLiteral("Right"));
        QStringList keys{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("60")};
        for (int i = 0; i < downs; ++i)
            keys.append(QStringLiteral("Down"));
        const bool hasClosed =
            menuCloses([&] { xdotool(keys + QStringList(QStringLiteral("Return"))); });
        xdotool({QStringLiteral("keyup"), QStringLiteral("alt")});
        EXPECT_TRUE(hasClosed);
    }
};

} // namespace

TEST_F(TextToolsTest, theSelectionIsAddedToTheNewestClip) {
    begin(TrayHost::none, R"({"hintsEnabled": false})");
    copy({QStringLiteral("before")});
    const auto editor = startEditor("one two\n");
    select(QStringLiteral("ctrl+Home shift+ctrl+Right"));
    ASSERT_TRUE(waitUntil([&] {
        if (clipboard() == "before")
            press(QStringLiteral("super+shift+a"));
        return clipboard() == "before\none";
    })) << clipboard().constData();
    EXPECT_TRUE(showsNotice());
    EXPECT_TRUE(program().errors().contains("[Quorvel AppendCopy] hotkey received"));
    select(QStringLiteral("ctrl+Home ctrl+Right shift+End"));
    press(QStringLiteral("super+shift+a"));
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "before\none\n two"; }))
        << clipboard().constData();
    EXPECT_EQ(newestText(), QStringLiteral("before\none\n two"));
    EXPECT_EQ(clips().size(), 2) << "the whole, and what was there before";

    press(QStringLiteral("ctrl+End"));
    ASSERT_EQ(control({QStringLiteral("append")}).exitCode, 0);
    EXPECT_TRUE(showsNotice());
    EXPECT_EQ(clipboard(), "before\none\n two") << "nothing is selected";
    EXPECT_TRUE(editorHolds("one two"));
    EXPECT_EQ(clips().size(), 2);
}

TEST_F(TextToolsTest, aProgramThatIsSlowToGiveItsSelectionIsWaitedFor) {
    begin(TrayHost::none);
    copy({QStringLiteral("before")});
    const auto slow = startInFront(QStringLiteral(QUORVEL_RAW_TARGET),
                                   {QStringLiteral("--class"), QStringLiteral("Slow"),
                                    QStringLiteral("--selected"), QStringLiteral("slow"),
                                    QStringLiteral("--giving"), QStringLiteral("500")},
                                   QStringLiteral("Slow"));
    ASSERT_EQ(control({QStringLiteral("append")}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return clipboard() == "before\nslow"; }))
        << slow->output().constData();
    EXPECT_EQ(clips().size(), 2) << "the whole, and what was there before";
}

TEST_F(TextToolsTest, aTerminalGivesItsSelectionWithoutBeingInterrupted) {
    begin(TrayHost::none);
    copy({QStringLiteral("before")});
    const QString ready = path(QStringLiteral("ready"));
    const auto terminal = startInFront(
        QStringLiteral("xterm"),
        {QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
         QStringLiteral("echo selected; touch '%1'; sleep 100; touch '%1.interrupted'").arg(ready)},
        QStringLiteral("XTerm"));
    ASSERT_TRUE(waitUntil([&] { return QFileInfo::exists(ready); }));
    EXPECT_TRUE(waitUntil([&] {
        xdotool({QStringLiteral("getactivewindow"), QStringLiteral("getwindowgeometry"),
                 QStringLiteral("mousemove"), QStringLiteral("--window"), QStringLiteral("%1"),
                 QStringLiteral("20"), QStringLiteral("8"), QStringLiteral("click"),
                 QStringLiteral("--repeat"), QStringLiteral("2"), QStringLiteral("1")});
        control({QStringLiteral("append")});
        return waitUntil([&] { return clipboard().startsWith("before\nselected"); },
                         std::chrono::seconds(2));
    })) << clipboard().constData();
    EXPECT_FALSE(QFileInfo::exists(ready + QStringLiteral(".interrupted")));
    EXPECT_TRUE(terminal->isRunning());
}

TEST_F(TextToolsTest, whatWasTypedInTheWrongLayoutIsPutRightAndTheClipboardStays) {
    begin(TrayHost::none);
    desktop().run(QStringLiteral("setxkbmap"), {QStringLiteral("us,ru")});
    ASSERT_TRUE(
        waitUntil([&] { return stateOf("cycleKeyboardLayoutHotKey") == QStringLiteral("bound"); }));
    copy({QStringLiteral("kept")});
    const auto editor = startEditor("ghbdtn\n");
    select(QStringLiteral("ctrl+Home shift+End"));
    press(QStringLiteral("ctrl+shift+x"));
    ASSERT_TRUE(editorHolds("привет")) << content(file()).constData();
    EXPECT_EQ(clipboard(), "kept");
    EXPECT_EQ(clips().size(), 1);
    select(QStringLiteral("ctrl+Home shift+End"));
    press(QStringLiteral("ctrl+shift+x"));
    EXPECT_TRUE(editorHolds("ghbdtn")) << content(file()).constData();
    press(QStringLiteral("ctrl+shift+x"));
    EXPECT_TRUE(editorHolds("привет")) << "goes on with what it has typed";
    select(QStringLiteral("End x"));
    press(QStringLiteral("ctrl+shift+x"));
    EXPECT_TRUE(showsNotice());
    EXPECT_TRUE(editorHolds("приветx")) << "something else is before the caret";
    EXPECT_EQ(clipboard(), "kept");
}

TEST_F(TextToolsTest, partsOfALinkArePastedAndTheLinkIsOpened) {
    const QByteArray opener = "#!/bin/sh\necho \"$1\" >> \"$HOME/opened\"\n";
    startDesktop(TrayHost::none);
    const QString programs = path(QStringLiteral("programs"));
    QDir().mkpath(programs);
    put(programs + QStringLiteral("/xdg-open"), opener);
    QFile::setPermissions(programs + QStringLiteral("/xdg-open"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    desktop().setVariable(QStringLiteral("PATH"), programs + u':' + qEnvironmentVariable("PATH"));
    desktop().setVariable(QStringLiteral("QUORVEL_MENU_TIMINGS"), QStringLiteral("1"));
    ASSERT_TRUE(startProgram());
    const QString link = QStringLiteral("https://docs.example.org/guide/install?lang=en");
    copy({link});
    const auto editor = startEditor("");
    chooseInSubmenu(5); // Four ways to paste, then the browser, then the domain.
    EXPECT_TRUE(editorHolds("docs.example.org")) << content(file()).constData();
    chooseInSubmenu(4);
    const QString opened = desktop().home() + QStringLiteral("/opened");
    EXPECT_TRUE(waitUntil([&] { return content(opened).trimmed() == link.toUtf8(); }))
        << content(opened).constData();
    press(QStringLiteral("ctrl+a"));
    ASSERT_EQ(control({QStringLiteral("transform"), QStringLiteral("upper")}).exitCode, 0);
    EXPECT_EQ(clipboard(), "DOCS.EXAMPLE.ORG");
}

} // namespace quorvel
