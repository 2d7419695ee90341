#include "ui/NativeMenu.h"

#include "support/FakeHotKeyCenter.h"
#include "support/QtPrinting.h"
#include "ui/MenuUiTest.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>

#include <gtest/gtest.h>

#include <xcb/xcb.h>

namespace quorvel {

namespace {

/// Holds the pointer or the keyboard for itself, as another program's menu does.
class GrabbingProgram {
public:
    enum class Held { pointer, keyboard };

    explicit GrabbingProgram(Held held)
        : m_connection(xcb_connect(nullptr, nullptr)) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        EXPECT_EQ(held == Held::pointer ? holdPointer(root) : holdKeyboard(root),
                  XCB_GRAB_STATUS_SUCCESS);
    }
    GrabbingProgram(const GrabbingProgram&) = delete;
    GrabbingProgram& operator=(const GrabbingProgram&) = delete;
    ~GrabbingProgram() { xcb_disconnect(m_connection); }

private:
    int holdPointer(xcb_window_t root) {
        const auto cookie = xcb_grab_pointer(m_connection, 0, root, 0, XCB_GRAB_MODE_ASYNC,
                                             XCB_GRAB_MODE_ASYNC, 0, 0, XCB_CURRENT_TIME);
        return statusOf(xcb_grab_pointer_reply(m_connection, cookie, nullptr));
    }
    int holdKeyboard(xcb_window_t root) {
        const auto cookie = xcb_grab_keyboard(m_connection, 0, root, XCB_CURRENT_TIME,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return statusOf(xcb_grab_keyboard_reply(m_connection, cookie, nullptr));
    }
    template <typename Reply>
    static int statusOf(Reply* reply) {
        const int status = reply ? reply->status : -1;
        std::free(reply);
        return status;
    }

    xcb_connection_t* m_connection;
};

/// Another keyboard layout as long as this lives.
class KeyboardLayout {
public:
    explicit KeyboardLayout(const QStringList& layout) { set(layout); }
    KeyboardLayout(const KeyboardLayout&) = delete;
    KeyboardLayout& operator=(const KeyboardLayout&) = delete;
    ~KeyboardLayout() { set({QStringLiteral("us"), QStringLiteral("-option")}); }

private:
    static void set(const QStringList& layout) {
        EXPECT_EQ(uiDesktop().run(QStringLiteral("setxkbmap"), layout).exitCode, 0);
    }
};

class NativeMenuTest : public MenuUiTest<NativeMenu, MenuForm::native> {
protected:
    static int depthOf(const QObject& object) {
        return object.parent() ? 1 + depthOf(*object.parent()) : 0;
    }

    /// The open menus, the main one first.
    static QList<QMenu*> shownMenus() {
        QList<QMenu*> shown;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* menu = qobject_cast<QMenu*>(widget); menu && menu->isVisible())
                shown.append(menu);
        std::sort(shown.begin(), shown.end(),
                  [](const QMenu* a, const QMenu* b) { return depthOf(*a) < depthOf(*b); });
        return shown;
    }
    static QMenu& shownMenu() { return *shownMenus().constFirst(); }

    static QStringList shownRows(const QMenu& menu) {
        QStringList rows;
        for (const QAction* action : menu.actions())
            if (action->isVisible())
                rows.append(action->text());
        return rows;
    }
    static QString highlighted(const QMenu& menu) {
        return menu.activeAction() ? menu.activeAction()->text() : QString();
    }

    /// Moves the highlight with the keyboard until it is on the row.
    static bool highlight(const QString& row) {
        for (int i = 0; i < 20 && highlighted(shownMenu()) != row; ++i) {
            const QString before = highlighted(shownMenu());
            pressKeys("Down");
            if (!waitUntil([&] { return highlighted(shownMenu()) != before; }))
                return false;
        }
        return highlighted(shownMenu()) == row;
    }

    static QLineEdit& searchField() { return *shownMenu().findChild<QLineEdit*>(); }
    static void sendKey(QEvent::Type type, quint32 scanCode, quint64 time) {
        QKeyEvent event(type, Qt::Key_V, Qt::MetaModifier, scanCode, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(&shownMenu(), &event);
    }
};

TEST_F(NativeMenuTest, rowsShowTitlesLiterallyWithTheKeysOfThisKeyboard) {
    open({MenuItem::header(QStringLiteral("Clips")),
          clip(QStringLiteral("a & b\tc"), QStringLiteral("1")), MenuItem::separator(),
          MenuItem::disabled(QStringLiteral("<b>off</b>"))});
    const QStringList rows{QStringLiteral("Clips"), QStringLiteral("a && bc\tSuper+1"), QString(),
                           QStringLiteral("<b>off</b>")};
    EXPECT_EQ(shownRows(shownMenu()), rows);
    EXPECT_FALSE(shownMenu().actions()[0]->isEnabled());
    EXPECT_TRUE(shownMenu().actions()[2]->isSeparator());
    EXPECT_FALSE(shownMenu().actions()[3]->isEnabled());
}

TEST_F(NativeMenuTest, closedComesOnceAndBeforeWhatWasChosen) {
    const QStringList chosen{QStringLiteral("closed"), QStringLiteral("chosen b")};
    const QStringList closed{QStringLiteral("closed")};
    struct Case {
        const char* name;
        std::function<void()> act;
        QStringList expected;
    };
    const Case cases[] = {
        {"key equivalent", [] { pressKeys("super+2"); }, chosen},
        {"Return",
         [] {
             ASSERT_TRUE(highlight(QStringLiteral("b\tSuper+2")));
             pressKeys("Return");
         },
         chosen},
        {"click",
         [this] {
             QMenu& shown = shownMenu();
             putPointer(shown.mapToGlobal(shown.actionGeometry(shown.actions()[1]).center()));
             ASSERT_TRUE(waitUntil([&] { return shown.activeAction() == shown.actions()[1]; }));
             xdotool({QStringLiteral("click"), QStringLiteral("1")});
         },
         chosen},
        {"a loss of the focus that is noticed late, then Escape",
         [] {
             tellOfLostFocus();
             pressKeys("Escape");
         },
         closed},
        {"click beside it",
         [this] {
             putPointer(QPoint(5, 5));
             xdotool({QStringLiteral("click"), QStringLiteral("1")});
         },
         closed},
        {"close", [this] { menu().close(); }, closed},
    };
    QStringList all;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        putPointer(QPoint(200, 100));
        open({clip(QStringLiteral("a"), QStringLiteral("1")),
              clip(QStringLiteral("b"), QStringLiteral("2"))});
        one.act();
        all += one.expected;
        EXPECT_TRUE(happens(all)) << events().join(u' ').toStdString();
        EXPECT_FALSE(menu().isOpen());
    }
}

TEST_F(NativeMenuTest, openingAgainReplacesTheMenu) {
    open(clips(3));
    open(clips(2));
    EXPECT_TRUE(menu().isOpen());
    EXPECT_EQ(events(), QStringList(QStringLiteral("closed")));
    EXPECT_EQ(shownRows(shownMenu()).size(), 2);
}

TEST_F(NativeMenuTest, aChoiceTellsTheModifiersThatWereHeld) {
    open({clip(QStringLiteral("a"))});
    ASSERT_TRUE(highlight(QStringLiteral("a")));
    pressKeys("alt+Return");
    ASSERT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen a")}));
    EXPECT_EQ(choice().modifiers, Modifiers(Modifier::option));
    EXPECT_EQ(choice().action, MenuAction::pasteRecentSnippet);
}

TEST_F(NativeMenuTest, modifierKeysDoNotCloseIt) {
    open(clips(2));
    for (const char* key :
         {"Alt_L", "Alt_R", "Super_L", "Control_L", "Shift_L", "ISO_Level3_Shift"})
        pressKeys(key);
    EXPECT_TRUE(highlight(QStringLiteral("clip 0"))); // The keys before have been seen by now.
    EXPECT_TRUE(menu().isOpen());
}

TEST_F(NativeMenuTest, keyEquivalentsAreExactReachSubmenusAndSkipDisabledItems) {
    MenuItem disabled = clip(QStringLiteral("off"), QStringLiteral("3"));
    disabled.enabled = false;
    open({clip(QStringLiteral("a"), QStringLiteral("1")), disabled,
          submenu(QStringLiteral("more"), {clip(QStringLiteral("inner"), QStringLiteral("4"))})});
    for (const char* keys : {"1", "shift+super+1", "ctrl+super+1", "super+3", "super+5"})
        pressKeys(keys);
    pressKeys("super+4");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen inner")}));
}

TEST_F(NativeMenuTest, keyEquivalentsAreFoundByTheirPlaceOnTheKeyboardToo) {
    FakeHotKeyCenter keys; // The key labelled 1 is at position 49, the one left of it here.
    menu().setKeyPositions(keys);
    open({clip(QStringLiteral("a"), QStringLiteral("1"))});
    pressKeys("super+grave");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen a")}));
}

TEST_F(NativeMenuTest, itsHotKeyClosesItUnlessItOnlyRepeats) {
    constexpr quint32 hotKey = 55;
    menu().setClosingKey(hotKey, Modifier::command);
    open(clips(2));
    sendKey(QEvent::KeyRelease, hotKey, 1000);
    sendKey(QEvent::KeyPress, hotKey, 1000);
    EXPECT_TRUE(menu().isOpen());
    sendKey(QEvent::KeyRelease, hotKey, 1040);
    sendKey(QEvent::KeyPress, hotKey, 1200);
    EXPECT_FALSE(menu().isOpen());
    EXPECT_EQ(events(), QStringList(QStringLiteral("closed")));
}

TEST_F(NativeMenuTest, anUpdateKeepsItOpenWithTheSameItemHighlighted) {
    open({clip(QStringLiteral("a")), clip(QStringLiteral("b"))});
    ASSERT_TRUE(highlight(QStringLiteral("b")));
    menu().update(
        {clip(QStringLiteral("new")), clip(QStringLiteral("a")), clip(QStringLiteral("b"))});
    EXPECT_EQ(highlighted(shownMenu()), QStringLiteral("b"));
    menu().update({clip(QStringLiteral("c"))});
    EXPECT_EQ(highlighted(shownMenu()), QString());
    EXPECT_EQ(shownRows(shownMenu()), QStringList(QStringLiteral("c")));
    EXPECT_TRUE(events().isEmpty());
    ASSERT_TRUE(highlight(QStringLiteral("c")));
    pressKeys("Return");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen c")}));
}

TEST_F(NativeMenuTest, anUpdateKeepsItOnTheScreenAndAtThePointer) {
    const QRect limits = QApplication::primaryScreen()->availableGeometry();
    putPointer(limits.bottomLeft() + QPoint(100, -20));
    open(clips(3));
    const int bottom = shownMenu().geometry().bottom();
    ASSERT_LE(bottom, limits.bottom() - 20);
    const int width = shownMenu().width();
    for (const int count : {12, 2, 300, 5}) {
        SCOPED_TRACE(count);
        menu().update(clips(count));
        EXPECT_EQ(shownMenu().width(), width);
        EXPECT_TRUE(limits.contains(shownMenu().geometry()));
        if (count < 20) {
            EXPECT_EQ(shownMenu().geometry().bottom(), bottom);
        }
    }
}

TEST_F(NativeMenuTest, aLazySubmenuIsFilledWhenItIsLookedAt) {
    const QString id = QStringLiteral("smart-lazy-links");
    open({submenu(id)});
    ASSERT_TRUE(highlight(id));
    EXPECT_TRUE(events().isEmpty());
    pressKeys("Right");
    ASSERT_TRUE(happens({QStringLiteral("opening ") + id}));
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    QMenu& links = *shownMenus().constLast();
    EXPECT_FALSE(links.actions().constFirst()->isEnabled());

    menu().fillSubmenu(id, {clip(QStringLiteral("x")), clip(QStringLiteral("y"))});
    EXPECT_EQ(shownRows(links), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
    pressKeys("Down");
    ASSERT_TRUE(waitUntil([&] { return highlighted(links) == QStringLiteral("x"); }));
    pressKeys("Return");
    EXPECT_TRUE(happens(
        {QStringLiteral("opening ") + id, QStringLiteral("closed"), QStringLiteral("chosen x")}));
}

TEST_F(NativeMenuTest, everyRowThatLeadsToASubmenuShowsIt) {
    const QString id = QStringLiteral("clip-lazy-1");
    QObject::connect(&menu(), &MenuRenderer::submenuOpening, &menu(),
                     [&] { menu().fillSubmenu(id, clips(2)); });
    open({submenu(id), submenu(QStringLiteral("pinned"), {submenu(id)})});
    ASSERT_TRUE(highlight(QStringLiteral("pinned")));
    for (qsizetype depth : {2, 3}) {
        pressKeys("Right");
        ASSERT_TRUE(waitUntil([&] { return shownMenus().size() == depth; }));
    }
    EXPECT_EQ(shownRows(*shownMenus().constLast()).constFirst(), QStringLiteral("clip 0"));
}

TEST_F(NativeMenuTest, closingClosesItsSubmenusToo) {
    open({submenu(QStringLiteral("more"), clips(3))});
    ASSERT_TRUE(highlight(QStringLiteral("more")));
    pressKeys("Right");
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    menu().close();
    EXPECT_TRUE(shownMenus().isEmpty());
    EXPECT_EQ(events(), QStringList(QStringLiteral("closed")));
}

TEST_F(NativeMenuTest, typingGoesToTheSearchFieldWhereverTheHighlightIs) {
    const QStringList titles{QStringLiteral("ax"), QStringLiteral("abx"), QStringLiteral("b y")};
    answerSearches(titles);
    open(searchable(titles));
    EXPECT_EQ(searchField().placeholderText(), QStringLiteral("Search"));
    ASSERT_TRUE(highlight(QStringLiteral("abx")));
    pressKeys("b");
    ASSERT_TRUE(asked({QStringLiteral("b")}));
    EXPECT_EQ(highlighted(shownMenu()), QStringLiteral("abx")); // The first that is found.
    pressKeys("Down");
    ASSERT_TRUE(waitUntil([] { return highlighted(shownMenu()) == QStringLiteral("b y"); }));
    menu().update(searchable({QStringLiteral("b new"), QStringLiteral("b y")},
                             QStringLiteral("b"))); // Something was copied meanwhile.
    EXPECT_EQ(highlighted(shownMenu()), QStringLiteral("b y"));
    for (const char* key : {"space", "alt+x", "super+x", "y", "Left", "Left", "Left", "BackSpace"})
        pressKeys(key);
    EXPECT_TRUE(asked({QStringLiteral("b"), QStringLiteral("b "), QStringLiteral("b y")}));
    pressKeys("Delete");
    EXPECT_TRUE(waitUntil([&] { return queries().constLast() == QStringLiteral(" y"); }));
    EXPECT_TRUE(searchField().hasFocus());
    pressKeys("Return");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen b y")}));
}

TEST_F(NativeMenuTest, returnDoesNothingWhenNothingIsFound) {
    QObject::connect(&menu(), &MenuRenderer::searchChanged, &menu(), [this](const QString& query) {
        menu().update(searchable({}, query) << MenuItem::disabled(QStringLiteral("No matches"))
                                            << submenu(QStringLiteral("Translate"), clips(1))
                                            << clip(QStringLiteral("Save")));
    });
    open(searchable({QStringLiteral("a")}) << clip(QStringLiteral("Save")));
    ASSERT_TRUE(highlight(QStringLiteral("Save")));
    pressKeys("x");
    ASSERT_TRUE(asked({QStringLiteral("x")}));
    EXPECT_EQ(highlighted(shownMenu()), QString());
    pressKeys("Return");
    pressKeys("x");
    ASSERT_TRUE(asked({QStringLiteral("x"), QStringLiteral("xx")}));
    EXPECT_TRUE(menu().isOpen());
    EXPECT_TRUE(events().isEmpty());
}

TEST_F(NativeMenuTest, keysThatComeWithTypingActOnWhatItFinds) {
    const QStringList titles{QStringLiteral("a"), QStringLiteral("xy 1"), QStringLiteral("xy 2")};
    answerSearchesWhenNeeded(titles);
    open(searchable(titles) << submenu(QStringLiteral("more"), clips(2)));
    ASSERT_TRUE(highlight(QStringLiteral("more")));
    sendTogether({{Qt::Key_Right, ""}});
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    sendTogether({{Qt::Key_X, "x"}, {Qt::Key_Y, "y"}, {Qt::Key_Down, ""}, {Qt::Key_Return, "\r"}});
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen xy 2")}));
}

TEST_F(NativeMenuTest, composedCharactersReachTheSearchField) {
    const KeyboardLayout deadKeys({QStringLiteral("us"), QStringLiteral("-variant"),
                                   QStringLiteral("intl"), QStringLiteral("-option"),
                                   QStringLiteral("compose:menu")});
    open(searchable({QStringLiteral("a"), QStringLiteral("b")}));
    ASSERT_TRUE(highlight(QStringLiteral("b")));
    for (const char* key : {"dead_acute", "e", "Multi_key", "s", "s"})
        pressKeys(key);
    EXPECT_TRUE(asked({QStringLiteral(u"\u00E9"), QStringLiteral(u"\u00E9\u00DF")}));
}

TEST_F(NativeMenuTest, theSearchFieldCopiesAndPastesByThePasteboard) {
    open(searchable({QStringLiteral("a")}));
    editsSearchByThePasteboard(searchField());
    EXPECT_TRUE(menu().isOpen());
}

TEST_F(NativeMenuTest, escapeClearsTheSearchBeforeItCloses) {
    MenuItem folder = submenu(QStringLiteral("more"), clips(2));
    const QList<MenuItem> tree = searchable({QStringLiteral("a")}) << folder;
    open(tree);
    pressKeys("a");
    ASSERT_TRUE(asked({QStringLiteral("a")}));
    pressKeys("Escape");
    ASSERT_TRUE(asked({QStringLiteral("a"), QString()}));
    EXPECT_TRUE(menu().isOpen());
    ASSERT_TRUE(highlight(QStringLiteral("more")));
    pressKeys("Right");
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    pressKeys("x"); // From inside a submenu, too.
    ASSERT_TRUE(asked({QStringLiteral("a"), QString(), QStringLiteral("x")}));
    pressKeys("Left");
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 1; }));
    EXPECT_TRUE(searchField().hasFocus());
    pressKeys("Escape");
    ASSERT_TRUE(waitUntil([&] { return queries().size() == 4; }));
    EXPECT_TRUE(menu().isOpen());
    pressKeys("Escape");
    EXPECT_TRUE(happens({QStringLiteral("closed")}));
    // A caret that went on blinking would keep the processor awake.
    EXPECT_TRUE(waitUntil([] { return !QApplication::focusWidget(); }));
    open(tree);
    EXPECT_EQ(searchField().text(), QString());
    pressKeys("z");
    EXPECT_TRUE(waitUntil([&] { return queries().constLast() == QStringLiteral("z"); }));
}

TEST_F(NativeMenuTest, theSearchFieldOutlivesRowsThatComeBeforeItAndItsOwnAbsence) {
    QList<MenuItem> tree = searchable({QStringLiteral("a")}, QStringLiteral("given"));
    open(tree);
    EXPECT_EQ(searchField().text(), QStringLiteral("given"));
    pressKeys("1");
    ASSERT_TRUE(asked({QStringLiteral("given1")}));
    tree.prepend(MenuItem::disabled(QStringLiteral("The disk is full")));
    menu().update(tree);
    EXPECT_TRUE(searchField().isVisible());
    EXPECT_GT(searchField().mapTo(&shownMenu(), QPoint()).y(), 20);
    pressKeys("2");
    ASSERT_TRUE(asked({QStringLiteral("given1"), QStringLiteral("given12")}));
    menu().update({clip(QStringLiteral("a"))});
    EXPECT_FALSE(searchField().isVisible());
    menu().update(searchable({}));
    EXPECT_TRUE(searchField().isVisible());
    EXPECT_TRUE(searchField().hasFocus());
    EXPECT_EQ(searchField().text(), QString());
}

TEST_F(NativeMenuTest, modifierKeysAreToldInSubmenusToo) {
    open(searchable({}) << submenu(QStringLiteral("more"), clips(2)));
    QList<Modifiers> expected;
    const auto holdAndRelease = [&](const char* key, Modifier modifier) {
        xdotool({QStringLiteral("keydown"), QString::fromLatin1(key)});
        expected.append(modifier);
        EXPECT_TRUE(waitUntil([&] { return modifiersTold() == expected; })) << key;
        xdotool({QStringLiteral("keyup"), QString::fromLatin1(key)});
        expected.append(Modifiers());
        EXPECT_TRUE(waitUntil([&] { return modifiersTold() == expected; })) << key;
    };
    holdAndRelease("Alt_L", Modifier::option);
    ASSERT_TRUE(highlight(QStringLiteral("more")));
    pressKeys("Right");
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    holdAndRelease("Alt_L", Modifier::option);
    holdAndRelease("Super_L", Modifier::command);
    EXPECT_EQ(shownMenus().size(), 2);
    EXPECT_TRUE(events().isEmpty());
}

TEST_F(NativeMenuTest, keysInsideLazySubmenusWork) {
    MenuItem folder = submenu(QStringLiteral("group-lazy-1"));
    folder.innerKeys = {{{QStringLiteral("7"), Modifier::command},
                         MenuAction::pasteGroupSnippet,
                         QStringLiteral("inner")}};
    open({folder});
    pressKeys("super+7");
    ASSERT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen inner")}));
    EXPECT_EQ(choice().action, MenuAction::pasteGroupSnippet);
    folder.innerKeys.first().keyEquivalent.modifiers = Modifier::control | Modifier::option;
    open({folder});
    pressKeys("ctrl+alt+7");
    ASSERT_TRUE(waitUntil([&] { return events().size() == 4; }));
    EXPECT_EQ(choice().modifiers, Modifiers()) << "they belong to the key";
}

TEST_F(NativeMenuTest, anItemGetsASubmenuInPlaceAndLosesItAgain) {
    const QStringList titles{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    const QList<MenuItem> plain = searchable(titles);
    QList<MenuItem> withModes = plain;
    for (MenuItem& item : withModes)
        if (item.action != MenuAction::none)
            item.identifier = QStringLiteral("modes-lazy-") + item.representedObject;
    open(plain);
    ASSERT_TRUE(highlight(QStringLiteral("b")));
    const QRect place = shownMenu().geometry();
    menu().update(withModes);
    EXPECT_EQ(highlighted(shownMenu()), QStringLiteral("b"));
    EXPECT_EQ(shownMenus().size(), 1);
    menu().update(plain);
    menu().update(withModes);
    pressKeys("Right");
    ASSERT_TRUE(happens({QStringLiteral("opening modes-lazy-b")}));
    ASSERT_TRUE(waitUntil([] { return shownMenus().size() == 2; }));
    menu().update(plain);
    EXPECT_EQ(shownMenus().size(), 1);
    EXPECT_EQ(highlighted(shownMenu()), QStringLiteral("b"));
    EXPECT_EQ(shownMenu().geometry(), place);
    pressKeys("Return");
    EXPECT_TRUE(happens({QStringLiteral("opening modes-lazy-b"), QStringLiteral("closed"),
                         QStringLiteral("chosen b")}));
}

TEST_F(NativeMenuTest, itLeavesTheInputFocusWhereItIs) {
    const auto answer = [](const QStringList& question) {
        return uiDesktop().run(QStringLiteral("xdotool"), question).output.trimmed();
    };
    const QStringList focusedWindow{QStringLiteral("getwindowfocus")};
    const QStringList terminalWindows{QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                      QStringLiteral("--class"), QStringLiteral("^XTerm$")};
    const auto terminal = uiDesktop().start(QStringLiteral("xterm"));
    QByteArray focus;
    ASSERT_TRUE(waitUntil([&] {
        focus = answer(focusedWindow);
        return !focus.isEmpty() && answer(terminalWindows).split('\n').contains(focus);
    })) << terminal->errors().constData();
    open(searchable({QStringLiteral("clip 1")}));
    ASSERT_TRUE(highlight(QStringLiteral("clip 1"))); // The keys come all the same.
    EXPECT_EQ(answer(focusedWindow), focus);
}

TEST_F(NativeMenuTest, itWaitsForAPointerThatAnotherProgramHolds) {
    auto program = std::make_unique<GrabbingProgram>(GrabbingProgram::Held::pointer);
    open(clips(2));
    program.reset();
    putPointer(QPoint(5, 5));
    EXPECT_TRUE(waitUntil([&] { // Only a menu that has the pointer sees a click beside it.
        xdotool({QStringLiteral("click"), QStringLiteral("1")});
        return !menu().isOpen();
    }));
}

TEST_F(NativeMenuTest, itWaitsForAKeyboardThatAnotherProgramHoldsAndClosesWhenItNeverComes) {
    auto program = std::make_unique<GrabbingProgram>(GrabbingProgram::Held::keyboard);
    open({clip(QStringLiteral("a"), QStringLiteral("1"))});
    EXPECT_TRUE(happens({QStringLiteral("closed")}));

    open({clip(QStringLiteral("a"), QStringLiteral("1"))});
    program.reset();
    EXPECT_TRUE(waitUntil([&] {
        pressKeys("super+1");
        return !menu().isOpen();
    }));
    EXPECT_TRUE(
        happens({QStringLiteral("closed"), QStringLiteral("closed"), QStringLiteral("chosen a")}));
}

TEST_F(NativeMenuTest, manyOpeningsLeaveNothingBehind) {
    const QList<MenuItem> tree = clips(30) << submenu(QStringLiteral("more"), clips(20));
    const auto openAndClose = [&] {
        open(tree);
        shownMenu().setActiveAction(shownMenu().actions().constLast()); // Opens the submenu.
        EXPECT_EQ(shownMenus().size(), 2);
        menu().close();
        QApplication::sendPostedEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    open(tree);
    QMenu& widget = shownMenu();
    openAndClose();
    const qsizetype before = widget.findChildren<QObject*>().size();
    ASSERT_GT(before, 30);
    for (int i = 0; i < 200; ++i)
        openAndClose();
    EXPECT_EQ(widget.findChildren<QObject*>().size(), before);
    EXPECT_TRUE(shownRows(widget).isEmpty()); // No clip is kept in a closed menu.
}

} // namespace

} // namespace quorvel
