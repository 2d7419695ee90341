#include "ui/popover/PopoverMenu.h"

#include "support/QtPrinting.h"
#include "ui/MenuUiTest.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScreen>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

class PopoverMenuTest : public MenuUiTest<PopoverMenu, MenuForm::popover> {
protected:
    static void button(const char* action) {
        xdotool({QString::fromLatin1(action), QStringLiteral("1")});
    }

    /// The shown panels, the first one first: each stands beside the one before.
    static QList<PopoverPanel*> panels() {
        QList<PopoverPanel*> shown;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<PopoverPanel*>(widget); panel && !panel->parent())
                shown = QList{panel} + panel->findChildren<PopoverPanel*>();
        shown.removeIf([](const PopoverPanel* panel) { return !panel->isVisible(); });
        return shown;
    }
    static PopoverPanel& root() { return *panels().constFirst(); }
    static PopoverPanel& deepest() { return *panels().constLast(); }

    static QString highlighted(const PopoverPanel& panel) {
        const int row = panel.list().highlighted();
        return row == PopoverRows::none ? QString() : panel.list().rows().item(row).title;
    }
    static bool comesTo(const PopoverPanel& panel, const QString& title) {
        return waitUntil([&] { return highlighted(panel) == title; });
    }
    static bool showsPanels(int count) {
        return waitUntil([&] { return panels().size() == count; });
    }

    static int rowOf(const PopoverPanel& panel, const QString& title) {
        const PopoverRows& rows = panel.list().rows();
        for (int row = 0; row < rows.count(); ++row)
            if (rows.item(row).title == title)
                return row;
        return PopoverRows::none;
    }
    static QPoint middleOf(const PopoverPanel& panel, const QString& title) {
        const PopoverList& list = panel.list();
        return list.mapToGlobal(list.placeOf(rowOf(panel, title)).center());
    }
};

TEST_F(PopoverMenuTest, keysMoveTheHighlightOverRowsAndSections) {
    MenuItem off = clip(QStringLiteral("off"));
    off.enabled = false;
    open(QList<MenuItem>{MenuItem::header(QStringLiteral("One"))}
         << clips(2) << off << MenuItem::separator() << MenuItem::separator()
         << MenuItem::header(QStringLiteral("Two")) << clip(QStringLiteral("c"))
         << MenuItem::separator() << clip(QStringLiteral("d")));
    const std::pair<const char*, const char*> steps[] = {
        {"Down", "clip 0"}, {"Down", "clip 1"},    {"Down", "c"},      {"Down", "d"},
        {"Down", "clip 0"}, {"Up", "d"},           {"Home", "clip 0"}, {"Tab", "c"},
        {"Tab", "d"},       {"Tab", "clip 0"},     {"shift+Tab", "d"}, {"shift+Tab", "c"},
        {"End", "d"},       {"Page_Up", "clip 0"}, {"Page_Down", "d"},
    };
    for (const auto& [key, row] : steps) {
        pressKeys(key);
        ASSERT_TRUE(comesTo(root(), QString::fromLatin1(row)))
            << key << " led to " << highlighted(root()).toStdString();
    }
    pressKeys("Return");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen d")}));
}

TEST_F(PopoverMenuTest, closedComesOnceAndBeforeWhatWasChosen) {
    const QStringList chosen{QStringLiteral("closed"), QStringLiteral("chosen b")};
    const QStringList closed{QStringLiteral("closed")};
    const auto pressAt = [](QPoint place) {
        putPointer(place);
        button("click");
    };
    struct Case {
        const char* name;
        std::function<void()> act;
        QStringList expected;
    };
    const Case cases[] = {
        {"key equivalent", [] { pressKeys("super+2"); }, chosen},
        {"click", [&] { pressAt(middleOf(root(), QStringLiteral("b"))); }, chosen},
        {"press, drag, release",
         [] {
             putPointer(middleOf(root(), QStringLiteral("a")));
             button("mousedown");
             putPointer(middleOf(root(), QStringLiteral("b")));
             button("mouseup");
         },
         chosen},
        {"click on a disabled row, then Escape",
         [&] {
             pressAt(middleOf(root(), QStringLiteral("off")));
             pressKeys("Escape");
         },
         closed},
        {"click beside it", [&] { pressAt(QPoint(5, 5)); }, closed},
        {"close", [this] { menu().close(); }, closed},
        {"a loss of the focus that is noticed late, then Escape",
         [] {
             tellOfLostFocus();
             pressKeys("Escape");
         },
         closed},
    };
    MenuItem b = clip(QStringLiteral("b"));
    b.keyEquivalent = {QStringLiteral("2"), Modifier::command};
    QStringList all;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        putPointer(QPoint(200, 100));
        open({clip(QStringLiteral("a")), b, MenuItem::disabled(QStringLiteral("off"))});
        one.act();
        all += one.expected;
        EXPECT_TRUE(happens(all)) << events().join(u' ').toStdString();
        EXPECT_FALSE(menu().isOpen());
        EXPECT_TRUE(panels().isEmpty());
    }
}

TEST_F(PopoverMenuTest, aChoiceTellsTheModifiersThatWereHeld) {
    qsizetype told = 0;
    for (const auto& [key, modifier] :
         {std::pair{"alt", Modifier::option}, std::pair{"ctrl", Modifier::control}}) {
        open(searchable({QStringLiteral("a")}));
        pressKeys("Down");
        ASSERT_TRUE(comesTo(root(), QStringLiteral("a")));
        pressKeys((std::string(key) + "+x").c_str()); // Types nothing.
        pressKeys((std::string(key) + "+Return").c_str());
        told += 2;
        ASSERT_TRUE(waitUntil([&] { return events().size() == told; }));
        EXPECT_EQ(choice().modifiers, Modifiers(modifier));
    }
    EXPECT_TRUE(queries().isEmpty());
}

TEST_F(PopoverMenuTest, typingSearchesWhereverTheHighlightIs) {
    const QStringList titles{QStringLiteral("ax"), QStringLiteral("abx"), QStringLiteral("b y")};
    answerSearches(titles);
    open(searchable(titles));
    const SearchField& field = *root().searchField();
    pressKeys("Up");
    ASSERT_TRUE(comesTo(root(), QStringLiteral("b y")));
    pressKeys("b");
    ASSERT_TRUE(asked({QStringLiteral("b")}));
    EXPECT_EQ(highlighted(root()), QStringLiteral("abx")); // The first that is found.
    pressKeys("Down");
    ASSERT_TRUE(comesTo(root(), QStringLiteral("b y")));
    menu().update(searchable({QStringLiteral("b new"), QStringLiteral("b y")},
                             QStringLiteral("b"))); // Something was copied meanwhile.
    EXPECT_EQ(highlighted(root()), QStringLiteral("b y"));
    menu().update(searchable({QStringLiteral("b y")}, QStringLiteral("late answer")));
    EXPECT_EQ(field.text(), QStringLiteral("b"));
    for (const char* key : {"Left", "a", "End", "BackSpace"})
        pressKeys(key);
    ASSERT_TRUE(asked({QStringLiteral("b"), QStringLiteral("ab"), QStringLiteral("a")}));
    pressKeys("Return");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen ax")}));
    open(searchable(titles));
    EXPECT_EQ(field.text(), QString());
}

TEST_F(PopoverMenuTest, keysThatComeWithTypingActOnWhatItFinds) {
    const QStringList titles{QStringLiteral("a"), QStringLiteral("xy 1"), QStringLiteral("xy 2")};
    answerSearchesWhenNeeded(titles);
    open(searchable(titles) << submenu(QStringLiteral("more"), clips(2)));
    sendTogether({{Qt::Key_End, ""}, {Qt::Key_Right, ""}});
    ASSERT_TRUE(showsPanels(2));
    sendTogether({{Qt::Key_X, "x"}, {Qt::Key_Y, "y"}, {Qt::Key_Down, ""}, {Qt::Key_Return, "\r"}});
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen xy 2")}));
}

TEST_F(PopoverMenuTest, composedCharactersReachTheSearchField) {
    const auto layout = [](const QStringList& arguments) {
        EXPECT_EQ(uiDesktop().run(QStringLiteral("setxkbmap"), arguments).exitCode, 0);
    };
    layout({QStringLiteral("us"), QStringLiteral("-variant"), QStringLiteral("intl")});
    open(searchable({QStringLiteral("a")}));
    for (const char* key : {"dead_acute", "e"})
        pressKeys(key);
    EXPECT_TRUE(asked({QStringLiteral(u"\u00E9")}));
    layout({QStringLiteral("us")});
}

TEST_F(PopoverMenuTest, theSearchFieldCopiesAndPastesByThePasteboard) {
    open(searchable({QStringLiteral("a")}));
    editsSearchByThePasteboard(*root().searchField());
    EXPECT_TRUE(menu().isOpen());
}

TEST_F(PopoverMenuTest, escapeLeavesTheSubmenuThenTheSearchThenThePopover) {
    MenuItem hint = clip(QStringLiteral("hint")); // Above the field: no result.
    hint.kind = MenuItemKind::hint;
    QObject::connect(&menu(), &MenuRenderer::searchChanged, &menu(), [&](const QString& query) {
        menu().update(QList<MenuItem>{hint} + searchable({}, query));
    });
    open(QList<MenuItem>{hint} + searchable({QStringLiteral("a")})
         << submenu(QStringLiteral("more"), clips(2)));
    pressKeys("End");
    ASSERT_TRUE(comesTo(root(), QStringLiteral("more")));
    pressKeys("Right");
    ASSERT_TRUE(showsPanels(2));
    EXPECT_TRUE(comesTo(deepest(), QStringLiteral("clip 0")));
    pressKeys("Escape");
    ASSERT_TRUE(showsPanels(1));
    pressKeys("x"); // Without a match.
    ASSERT_TRUE(asked({QStringLiteral("x")}));
    pressKeys("Return"); // Chooses nothing.
    pressKeys("Escape");
    ASSERT_TRUE(asked({QStringLiteral("x"), QString()}));
    EXPECT_TRUE(menu().isOpen());
    pressKeys("Escape");
    EXPECT_TRUE(happens({QStringLiteral("closed")}));
}

TEST_F(PopoverMenuTest, anUpdateKeepsHighlightAndWhatIsSeen) {
    QList<MenuItem> tree = clips(200);
    tree.append(clip(QStringLiteral("clip 3"))); // The same clip in another section.
    open(tree);
    PopoverList& list = root().list();
    const QRect place = root().geometry();
    list.highlight(200, PopoverList::Reveal::yes);
    const QRect seen = list.placeOf(200);
    tree.prepend(clip(QStringLiteral("new")));
    menu().update(tree);
    EXPECT_EQ(list.highlighted(), 201);
    EXPECT_EQ(list.placeOf(201), seen);
    EXPECT_EQ(root().geometry(), place);
    tree.removeLast();
    tree.removeAt(4);
    menu().update(tree);
    EXPECT_EQ(highlighted(root()), QString());
    EXPECT_TRUE(events().isEmpty());
}

TEST_F(PopoverMenuTest, lazySubmenusAreFilledAtOnceOrLaterAndOutliveUpdates) {
    const QString now = QStringLiteral("now-lazy-1");
    const QString later = QStringLiteral("later-lazy-1");
    QObject::connect(&menu(), &MenuRenderer::submenuOpening, &menu(), [&](const QString& id) {
        if (id == now)
            menu().fillSubmenu(id, clips(2));
    });
    const QList<MenuItem> tree{clip(QStringLiteral("a")), submenu(now), submenu(later)};
    open(tree);
    pressKeys("Down");
    pressKeys("Down");
    pressKeys("Right");
    ASSERT_TRUE(showsPanels(2));
    EXPECT_TRUE(comesTo(deepest(), QStringLiteral("clip 0")));
    pressKeys("Down");
    ASSERT_TRUE(comesTo(deepest(), QStringLiteral("clip 1")));
    menu().update(QList<MenuItem>{clip(QStringLiteral("new"))} + tree);
    ASSERT_TRUE(showsPanels(2));
    EXPECT_EQ(highlighted(deepest()), QStringLiteral("clip 1"));
    pressKeys("Left");
    ASSERT_TRUE(showsPanels(1));
    pressKeys("Down");
    pressKeys("Right");
    ASSERT_TRUE(showsPanels(2));
    EXPECT_EQ(highlighted(deepest()), QString());
    menu().fillSubmenu(later, clips(1));
    EXPECT_EQ(highlighted(deepest()), QStringLiteral("clip 0"));
    menu().update({clip(QStringLiteral("a"))});
    EXPECT_TRUE(showsPanels(1));
}

TEST_F(PopoverMenuTest, everyRowThatLeadsToASubmenuShowsIt) {
    const QString id = QStringLiteral("clip-lazy-1");
    QObject::connect(&menu(), &MenuRenderer::submenuOpening, &menu(),
                     [&] { menu().fillSubmenu(id, clips(2)); });
    open({submenu(id), submenu(QStringLiteral("pinned"), {submenu(id)})});
    pressKeys("End");
    for (int depth : {2, 3}) {
        pressKeys("Right");
        ASSERT_TRUE(showsPanels(depth));
    }
    EXPECT_EQ(highlighted(deepest()), QStringLiteral("clip 0"));
}

TEST_F(PopoverMenuTest, thePointerOpensSubmenusAndOnlyMovingItMovesTheHighlight) {
    const QList<MenuItem> tree = clips(3) << submenu(QStringLiteral("more"), clips(4))
                                          << submenu(QStringLiteral("others"), clips(5));
    open(tree);
    pressKeys("Down");
    ASSERT_TRUE(comesTo(root(), QStringLiteral("clip 0")));
    menu().update(QList<MenuItem>{clip(QStringLiteral("new"))} + tree); // Under the pointer, too.
    EXPECT_EQ(highlighted(root()), QStringLiteral("clip 0"));
    putPointer(middleOf(root(), QStringLiteral("more")));
    ASSERT_TRUE(showsPanels(2));
    putPointer(middleOf(root(), QStringLiteral("more")) + QPoint(60, 4));
    putPointer(middleOf(root(), QStringLiteral("others")) + QPoint(100, 0)); // On its way.
    putPointer(middleOf(deepest(), QStringLiteral("clip 2")));
    EXPECT_TRUE(comesTo(deepest(), QStringLiteral("clip 2")));
    EXPECT_EQ(highlighted(root()), QStringLiteral("more"));
    button("click");
    EXPECT_TRUE(happens({QStringLiteral("closed"), QStringLiteral("chosen clip 2")}));
}

TEST_F(PopoverMenuTest, aScrollBarIsLetGoWhenItsPanelCloses) {
    const auto hold = [](const PopoverPanel& panel) {
        const PopoverList& list = panel.list();
        putPointer(list.mapToGlobal(QPoint(list.width() - 3, 10)));
        button("mousedown");
        ASSERT_TRUE(waitUntil([&] { return list.isScrollBarHeld(); }));
    };
    open(clips(100));
    hold(root());
    menu().close();
    button("mouseup");
    open(QList<MenuItem>{submenu(QStringLiteral("more"), clips(100))} + clips(100));
    putPointer(middleOf(root(), QStringLiteral("clip 1")));
    EXPECT_TRUE(comesTo(root(), QStringLiteral("clip 1")));
    putPointer(middleOf(root(), QStringLiteral("more")));
    ASSERT_TRUE(showsPanels(2));
    hold(deepest());
    menu().update(clips(100));
    ASSERT_TRUE(showsPanels(1));
    putPointer(middleOf(root(), QStringLiteral("clip 2")));
    ASSERT_TRUE(comesTo(root(), QStringLiteral("clip 2")));
    button("mouseup"); // Ends the scrolling, no more.
    putPointer(middleOf(root(), QStringLiteral("clip 3")));
    button("click");
    EXPECT_TRUE(happens(
        {QStringLiteral("closed"), QStringLiteral("closed"), QStringLiteral("chosen clip 3")}));
}

TEST_F(PopoverMenuTest, modifiersAreToldAndItsHotKeyClosesItUnlessItOnlyRepeats) {
    constexpr quint32 hotKey = 55;
    menu().setClosingKey(hotKey, Modifier::command);
    const auto focus = [] {
        return uiDesktop()
            .run(QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus")})
            .output;
    };
    const QByteArray focusBefore = focus();
    open(searchable({QStringLiteral("a")}));
    EXPECT_EQ(focus(), focusBefore);
    pressKeys("Alt_L");
    EXPECT_TRUE(waitUntil([&] {
        return modifiersTold() == QList<Modifiers>{Modifier::option, Modifiers()};
    }));
    const auto send = [](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_V, Qt::MetaModifier, hotKey, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(&root(), &event);
    };
    send(QEvent::KeyRelease, 1000);
    send(QEvent::KeyPress, 1000);
    EXPECT_TRUE(menu().isOpen());
    send(QEvent::KeyRelease, 1040);
    send(QEvent::KeyPress, 1200);
    EXPECT_FALSE(menu().isOpen());
    EXPECT_EQ(events(), QStringList(QStringLiteral("closed")));
}

TEST_F(PopoverMenuTest, rightToLeftLayoutsAreMirrored) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const QRect limits = QApplication::primaryScreen()->availableGeometry();
    const QPoint pointer(limits.right() - 100, 100);
    putPointer(pointer);
    open(QList<MenuItem>{submenu(QStringLiteral("more"), clips(2))});
    EXPECT_LT(root().place().right(), pointer.x());
    pressKeys("Down");
    pressKeys("Left");
    EXPECT_TRUE(showsPanels(2));
    EXPECT_LT(deepest().place().center().x(), root().place().center().x());
    pressKeys("Right");
    EXPECT_TRUE(showsPanels(1));
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(PopoverMenuTest, everythingMayHappenInsideTheSignalsItEmits) {
    const QString id = QStringLiteral("x-lazy-1");
    const std::function<void()> acts[] = {
        [this] { menu().close(); },
        [this] { menu().update({}); },
        [this, id] {
            menu().update({clip(QStringLiteral("a")), submenu(id)});
        },
        [this] { menu().open(clips(2), MenuForm::popover); },
        [this, id] { menu().fillSubmenu(id, {}); },
    };
    for (const auto& act : acts) {
        open(searchable({}) << submenu(id));
        const auto once = QObject::connect(&menu(), &MenuRenderer::submenuOpening, act);
        const auto again = QObject::connect(&menu(), &MenuRenderer::searchChanged, act);
        const qsizetype before = events().size();
        pressKeys("Down");
        pressKeys("Right");
        EXPECT_TRUE(waitUntil([&] { return events().size() > before; }));
        QObject::disconnect(once);
        if (menu().isOpen())
            pressKeys("x");
        QApplication::processEvents();
        QObject::disconnect(again);
        menu().close();
        QApplication::processEvents();
        EXPECT_TRUE(panels().isEmpty());
    }
}

TEST_F(PopoverMenuTest, tenThousandRowsCostLittleAndManyOpeningsLeaveNothing) {
    const QList<MenuItem> tree = searchable({}) + clips(10'000);
    open(tree);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 10; ++i)
        menu().update(tree);
    root().list().highlight(root().list().rows().last(), PopoverList::Reveal::yes);
    root().list().grab();
    EXPECT_LT(clock.elapsed(), 500);
    EXPECT_LE(root().place().height(), PopoverMetrics::mostHeight);
    PopoverPanel& kept = root();
    menu().close();
    const auto openAndClose = [&] {
        open(searchable({}) + QList<MenuItem>{submenu(QStringLiteral("more"), clips(5))});
        kept.list().highlight(kept.list().rows().first(), PopoverList::Reveal::yes);
        QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QApplication::sendEvent(&kept, &right);
        EXPECT_EQ(panels().size(), 2);
        menu().close();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    openAndClose();
    const qsizetype before = kept.findChildren<QObject*>().size();
    for (int i = 0; i < 100; ++i)
        openAndClose();
    EXPECT_EQ(kept.findChildren<QObject*>().size(), before);
    EXPECT_EQ(kept.list().rows().count(), 0); // No clip is kept in a closed menu.
}

TEST_F(PopoverMenuTest, assistiveProgramsSeeAMenuOfItems) {
    MenuItem clipWithDetail = clip(QStringLiteral("a"));
    clipWithDetail.detail = QStringLiteral("Firefox");
    open(QList<MenuItem>{MenuItem::header(QStringLiteral("Clips")), clipWithDetail,
                         submenu(QStringLiteral("more"), clips(1))});
    PopoverList& list = root().list();
    list.highlight(1, PopoverList::Reveal::yes);
    const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&list);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->role(), QAccessible::PopupMenu);
    ASSERT_EQ(seen->childCount(), 3);
    EXPECT_EQ(seen->child(1)->role(), QAccessible::MenuItem);
    EXPECT_EQ(seen->child(1)->text(QAccessible::Name), QStringLiteral("a"));
    EXPECT_EQ(seen->child(1)->text(QAccessible::Description), QStringLiteral("Firefox"));
    EXPECT_EQ(seen->focusChild(), seen->child(1));
    EXPECT_TRUE(seen->child(0)->state().disabled);
    EXPECT_TRUE(seen->child(2)->state().hasPopup);
    const QAccessibleInterface* last = seen->child(2);
    menu().update({clip(QStringLiteral("b"))});
    EXPECT_FALSE(last->isValid());
}

TEST(PanelPlacement, panelsStayOnTheScreenAndBesideEachOther) {
    const QRect screen(0, 0, 1000, 700);
    const QRect row(100, 300, 420, 44);
    struct Case {
        const char* name;
        QRect panel;
        QSize size;
        PanelSide wanted;
        QRect limits;
        PanelSide side;
        bool mayOverlap;
    };
    const Case cases[] = {
        {"room on both sides",
         {300, 20, 420, 660},
         {260, 200},
         PanelSide::right,
         screen,
         PanelSide::right,
         false},
        {"wants the left",
         {300, 20, 420, 660},
         {260, 200},
         PanelSide::left,
         screen,
         PanelSide::left,
         false},
        {"at the right edge",
         {580, 20, 420, 660},
         {260, 200},
         PanelSide::right,
         screen,
         PanelSide::left,
         false},
        {"at the left edge",
         {0, 20, 420, 660},
         {260, 200},
         PanelSide::left,
         screen,
         PanelSide::right,
         false},
        {"no room at all",
         {100, 0, 420, 400},
         {380, 900},
         PanelSide::right,
         {0, 0, 600, 400},
         PanelSide::right,
         true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const SubmenuPlace found = placedBeside(one.panel, row, one.size, one.wanted, one.limits);
        EXPECT_TRUE(one.limits.contains(found.place));
        EXPECT_EQ(found.side, one.side);
        EXPECT_EQ(found.place.intersected(one.panel).width() > 10, one.mayOverlap);
    }
    PanelAnchor anchor;
    const QRect small(0, 0, 400, 300);
    for (const QPoint pointer : {QPoint(0, 0), QPoint(399, 299), QPoint(200, 150)}) {
        const QRect place = anchor.open({420, 660}, pointer, small, Qt::LeftToRight);
        EXPECT_TRUE(small.contains(place));
        EXPECT_TRUE(small.contains(anchor.resized(place, {420, 100}, small)));
    }
    const QRect above = anchor.open({420, 300}, {500, 690}, screen, Qt::LeftToRight);
    EXPECT_EQ(anchor.resized(above, {420, 120}, screen).bottom(), above.bottom());
}

} // namespace

} // namespace quorvel
