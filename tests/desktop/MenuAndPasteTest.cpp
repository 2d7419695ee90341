#include "desktop/DesktopTest.h"

#include <QFile>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

class MenuAndPasteTest : public DesktopTest {
protected:
    void begin(TrayHost tray) {
        startDesktop(tray);
        desktop().setVariable(QStringLiteral("QUORVEL_MENU_TIMINGS"), QStringLiteral("1"));
        ASSERT_TRUE(startProgram()) << program().errors().constData();
    }

    ProgramResult xdotool(const QStringList& arguments) {
        return desktop().run(QStringLiteral("xdotool"), arguments);
    }
    void press(const QString& keys) { xdotool({QStringLiteral("key"), keys}); }

    qsizetype openings() { return program().errors().count("first-paint"); }
    qsizetype closings() { return program().errors().count("[MenuPerf] close"); }
    bool menuOpens(const std::function<void()>& action) {
        const qsizetype before = openings();
        action();
        return waitUntil([&] { return openings() == before + 1; });
    }
    bool menuCloses(const std::function<void()>& action) {
        const qsizetype before = closings();
        action();
        return waitUntil([&] { return closings() == before + 1; });
    }

    void copy(const QStringList& texts) {
        for (const QString& text : texts) {
            copyWithXclip(text.toUtf8());
            ASSERT_TRUE(waitUntil([&] { return newestText() == text; }));
        }
    }

    /// Starts a program with a window and waits until that has the focus.
    std::unique_ptr<ChildProgram> startInFront(const QString& name, const QStringList& arguments,
                                               const QString& windowClass) {
        auto child = desktop().start(name, arguments);
        const bool isInFront = waitUntil([&] {
            const QByteArray active = xdotool({QStringLiteral("getactivewindow")}).output.trimmed();
            const ProgramResult windows =
                xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                         QStringLiteral("--class"), QStringLiteral("^%1$").arg(windowClass)});
            return !active.isEmpty() && windows.output.split('\n').contains(active);
        });
        EXPECT_TRUE(isInFront) << name.toStdString() << child->errors().constData();
        return child;
    }

    /// A terminal that writes what is typed or pasted into a file.
    std::unique_ptr<ChildProgram> startTerminalThatWrites(const QString& file) {
        return startInFront(QStringLiteral("xterm"),
                            {QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
                             QStringLiteral("cat > '%1'").arg(file)},
                            QStringLiteral("XTerm"));
    }

    QString path(const QString& name) { return desktop().folder() + u'/' + name; }
    static QByteArray content(const QString& file) {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    }
    void put(const QString& file, const QByteArray& bytes) {
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }

    /// Where the icon is, found as the small picture in the tray that is not the panel's own.
    QStringList embeddedIconPosition() {
        const QByteArray windows =
            xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                     QStringLiteral("--pid"), QString::number(program().pid())})
                .output;
        for (const QByteArray& window : windows.split('\n')) {
            const QByteArray shell =
                xdotool({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
                         QString::fromLatin1(window)})
                    .output;
            const auto field = [&](const QByteArray& name) {
                const qsizetype at = shell.indexOf(name + '=');
                return at < 0 ? 0 : shell.mid(at + name.size() + 1).split('\n').first().toInt();
            };
            if (field("WIDTH") > 8 && field("WIDTH") <= 64)
                return {QString::number(field("X") + field("WIDTH") / 2),
                        QString::number(field("Y") + field("HEIGHT") / 2)};
        }
        return {};
    }
    /// The middle of our icon in a picture of the desktop, found by the yellow of its clip, which
    /// no panel has; empty when it is not there.
    QStringList iconIn(const QString& picture) {
        const QByteArray box =
            desktop()
                .run(QStringLiteral("convert"),
                     {picture, QStringLiteral("-fuzz"), QStringLiteral("2%"),
                      QStringLiteral("-fill"), QStringLiteral("black"), QStringLiteral("+opaque"),
                      QStringLiteral("#ffc44d"), QStringLiteral("-format"), QStringLiteral("%@"),
                      QStringLiteral("info:")})
                .output;
        int width = 0;
        int height = 0;
        int x = 0;
        int y = 0;
        const bool isBox =
            std::sscanf(box.constData(), "%dx%d+%d+%d", &width, &height, &x, &y) == 4;
        if (!isBox || width < 3 || width > 16)
            return {};
        return {QString::number(x + width / 2), QString::number(y + height / 2)};
    }
    void clickAt(const QStringList& position) {
        xdotool(QStringList{QStringLiteral("mousemove")} + position +
                QStringList{QStringLiteral("click"), QStringLiteral("1")});
    }
};

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
