#include "desktop/MenuDesktopTest.h"

#include <QRect>

namespace quorvel {

namespace {

struct Form {
    const char* name;
    bool isPopover;
    int firstClip; ///< Points from the window's top to the middle of the first clip's row.
};

void PrintTo(const Form& form, std::ostream* out) {
    *out << form.name;
}

/// Everything that both forms of the menu can do, by keys alone and by the mouse alone.
class MenuFormsTest : public MenuDesktopTest, public testing::WithParamInterface<Form> {
protected:
    /// Without hints and translation, so that the clips stand at a known place.
    void begin(TrayHost tray) {
        MenuDesktopTest::begin(
            tray, QByteArrayLiteral(R"({"hintsEnabled": false, "translationEnabled": false,)") +
                      R"("customMenuEnabled": )" + (GetParam().isPopover ? "true}" : "false}"));
    }

    bool openByKey() {
        return menuOpens([&] { press(QStringLiteral("super+shift+v")); });
    }
    void type(const char* text) {
        xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"),
                 QString::fromLatin1(text)});
    }

    /// The program's window that is as wide as a menu.
    std::optional<QRect> menuWindow() {
        const QByteArray windows =
            xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                     QStringLiteral("--pid"), QString::number(program().pid())})
                .output;
        for (const QByteArray& window : windows.split('\n')) {
            const QRect place = placeOf(window);
            if (place.width() > 150)
                return place;
        }
        return std::nullopt;
    }

    QRect placeOf(const QByteArray& window) {
        const QByteArray shell = xdotool({QStringLiteral("getwindowgeometry"),
                                          QStringLiteral("--shell"), QString::fromLatin1(window)})
                                     .output;
        const auto field = [&](const QByteArray& name) {
            const qsizetype at = shell.indexOf(name + '=');
            return at < 0 ? 0 : shell.mid(at + name.size() + 1).split('\n').first().toInt();
        };
        return {field("X"), field("Y"), field("WIDTH"), field("HEIGHT")};
    }

    static QStringList words(QPoint place) {
        return {QString::number(place.x()), QString::number(place.y())};
    }

    bool isPinned(const QString& text) {
        for (const auto& clip : clips())
            if (clip.toObject()[QStringLiteral("text")].toString() == text)
                return clip.toObject()[QStringLiteral("pinned")].toBool();
        return false;
    }
};

TEST_P(MenuFormsTest, keysAloneSearchPasteAndPin) {
    begin(TrayHost::none);
    control({QStringLiteral("snippets"), QStringLiteral("add"), QStringLiteral("--title"),
             QStringLiteral("Greeting")},
            "Hello from a snippet\n");
    copy({QStringLiteral("apple\n"), QStringLiteral("Café au lait\n"), QStringLiteral("pear\n")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    const auto pasteFound = [&](const char* query, const QByteArray& soFar) {
        ASSERT_TRUE(openByKey());
        type(query);
        EXPECT_TRUE(menuCloses([&] { press(QStringLiteral("Return")); })) << query;
        EXPECT_TRUE(waitUntil([&] { return content(file) == soFar; })) << content(file).constData();
    };
    pasteFound("CAFE", "Café au lait\n");
    pasteFound("snippet", "Café au lait\nHello from a snippet\n");

    ASSERT_TRUE(openByKey());
    type("apple");
    xdotool({QStringLiteral("keydown"), QStringLiteral("alt")});
    press(QStringLiteral("BackSpace")); // Alt and a letter edit nothing.
    xdotool({QStringLiteral("keyup"), QStringLiteral("alt")});
    EXPECT_TRUE(menuCloses([&] {
        press(QStringLiteral("Escape"));
        press(QStringLiteral("Escape"));
    }));
    EXPECT_EQ(content(file), QByteArray("Café au lait\nHello from a snippet\n"));
}

TEST_P(MenuFormsTest, theOptionKeyOpensWhatCanBeDoneWithAClip) {
    begin(TrayHost::none);
    copy({QStringLiteral("older"), QStringLiteral("newest")});
    ASSERT_TRUE(openByKey());
    if (!GetParam().isPopover)
        press(QStringLiteral("Down")); // This form begins with no row highlighted.
    xdotool({QStringLiteral("keydown"), QStringLiteral("alt")});
    const bool hasClosed = menuCloses([&] {
        press(QStringLiteral("Right"));
        // Four ways to paste stand above the pin; the first is highlighted.
        xdotool({QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("60"),
                 QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Down"),
                 QStringLiteral("Down"), QStringLiteral("Return")});
    });
    xdotool({QStringLiteral("keyup"), QStringLiteral("alt")});
    EXPECT_TRUE(hasClosed);
    EXPECT_TRUE(waitUntil([&] { return isPinned(QStringLiteral("newest")); }));
    EXPECT_FALSE(isPinned(QStringLiteral("older")));
}

TEST_P(MenuFormsTest, theMouseAloneOpensPastesAndCloses) {
    begin(TrayHost::tint2);
    copy({QStringLiteral("older\n"), QStringLiteral("by mouse\n")});
    const QString file = path(QStringLiteral("typed"));
    const auto terminal = startTerminalThatWrites(file);
    ASSERT_TRUE(waitUntil([&] { return !embeddedIconPosition().isEmpty(); }));
    ASSERT_TRUE(menuOpens([&] { clickAt(embeddedIconPosition()); }));
    EXPECT_TRUE(menuCloses([&] { clickAt({QStringLiteral("5"), QStringLiteral("5")}); }));

    // The click outside went to the window below; the terminal has to be in front again.
    clickAt({QStringLiteral("200"), QStringLiteral("100")});
    ASSERT_TRUE(menuOpens([&] { clickAt(embeddedIconPosition()); }));
    std::optional<QRect> menu;
    ASSERT_TRUE(waitUntil([&] { return (menu = menuWindow()).has_value(); }));
    EXPECT_TRUE(menuCloses([&] {
        clickAt(words({menu->center().x(), menu->top() + GetParam().firstClip}));
    }));
    EXPECT_TRUE(waitUntil([&] { return content(file) == "by mouse\n"; }))
        << content(file).constData();
}

TEST_P(MenuFormsTest, aScreenThatIsUnpluggedOrShrinksHidesNoMenu) {
    begin(TrayHost::none);
    QStringList texts;
    for (int i = 0; i < 12; ++i)
        texts.append(QStringLiteral("clip %1").arg(i));
    copy(texts);
    const auto screens = [&](const QString& arguments) {
        return desktop().run(QStringLiteral("xrandr"), arguments.split(u' ')).exitCode == 0;
    };
    const auto isWithin = [&](const QRect& limits) {
        const auto menu = menuWindow();
        return menu && limits.contains(*menu);
    };
    const QString right = QStringLiteral("--setmonitor RIGHT 640/160x800/200+640+0 none");
    ASSERT_TRUE(screens(QStringLiteral("--setmonitor LEFT 640/160x800/200+0+0 screen")));
    ASSERT_TRUE(screens(right));
    xdotool({QStringLiteral("mousemove"), QStringLiteral("100"), QStringLiteral("100")});
    ASSERT_TRUE(openByKey());
    EXPECT_TRUE(menuCloses([&] { // By then it may have closed by itself.
        screens(QStringLiteral("--delmonitor RIGHT"));
        press(QStringLiteral("Escape"));
    }));

    ASSERT_TRUE(screens(right));
    xdotool({QStringLiteral("mousemove"), QStringLiteral("1000"), QStringLiteral("500")});
    ASSERT_TRUE(openByKey());
    EXPECT_TRUE(waitUntil([&] { return isWithin({640, 0, 640, 800}); }));
    EXPECT_TRUE(menuCloses([&] { screens(QStringLiteral("--delmonitor RIGHT")); }));

    ASSERT_TRUE(openByKey());
    EXPECT_TRUE(waitUntil([&] { return isWithin({0, 0, 640, 800}); }));
    desktop().run(QStringLiteral("xprop"),
                  {QStringLiteral("-root"), QStringLiteral("-f"), QStringLiteral("_NET_WORKAREA"),
                   QStringLiteral("32c"), QStringLiteral("-set"), QStringLiteral("_NET_WORKAREA"),
                   QStringLiteral("0,0,600,300")});
    EXPECT_TRUE(waitUntil([&] { return isWithin({0, 0, 600, 300}); }));
    EXPECT_TRUE(menuCloses([&] { press(QStringLiteral("Escape")); }));
}

INSTANTIATE_TEST_SUITE_P(Both, MenuFormsTest,
                         testing::Values(Form{"popover", true, 108}, Form{"native", false, 90}),
                         [](const auto& form) { return std::string(form.param.name); });

} // namespace

} // namespace quorvel
