#include "FakeUi.h"
#include "MenuOutline.h"
#include "MenuRig.h"

#include "menu/StatusMenuController.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace quorvel::testing {

class StatusMenuControllerTest : public ::testing::Test, protected MenuRig {
protected:
    QString shown() const { return outlineOf(renderer.tree); }
    bool shows(const char* text) const { return shown().contains(QString::fromUtf8(text)); }
    void insertLinks(int count) {
        preferences.set(keys::clipboardHistoryLimit, 50);
        for (int i = 0; i < count; ++i)
            insertLink(QStringLiteral("https://%1.example").arg(i));
    }
    QList<qsizetype> lengthsOfFills() const {
        QList<qsizetype> lengths;
        for (const auto& [identifier, items] : renderer.fills)
            lengths.append(items.size());
        return lengths;
    }
    int uses() const { return preferences.record(keys::altModeUsageCount).toInt(); }

    FakeMenuRenderer renderer;
    StatusMenuController controller{
        {.content = content,
         .history = history,
         .snippets = snippets,
         .watcher = watcher,
         .renderer = renderer,
         .mainQueue = mainQueue,
         .hints = MenuHints(preferences, strings, [](int) { return 4; })}};
};

TEST_F(StatusMenuControllerTest, OpeningTakesAPendingCopyAndDropsLapsedPins) {
    insert(QStringLiteral("pinned"));
    history.pinFor(first().id, 10s);
    clock.advance(11s);
    pasteboard.setAnnouncesChanges(false);
    pasteboard.copyFromOutside(QStringLiteral("just copied"));
    controller.open(MenuVariant::main);
    EXPECT_TRUE(shows("! Smart folders gather"));
    EXPECT_TRUE(shows("1: just copied|2: pinned"));
    EXPECT_FALSE(shows("Pinned Clips"));
    EXPECT_FALSE(first().pinned);
}

TEST_F(StatusMenuControllerTest, AnOpenMenuFollowsWhatChangesAndKeepsItsState) {
    controller.open(MenuVariant::pasteHotKey);
    emit renderer.searchChanged(QStringLiteral("new"));
    insert(QStringLiteral("new"));
    EXPECT_FALSE(shows("1: new")) << "changes of one turn are shown together";
    mainQueue.settle();
    EXPECT_TRUE(shows("|? new|-|1: new|"));
    EXPECT_TRUE(renderer.tree.first().kind == MenuItemKind::hint);
    EXPECT_FALSE(shows("Quit"));
    addSnippet(QStringLiteral("snippet"), QStringLiteral("new too"));
    controller.setSaveProblem(QStringLiteral("disk full"));
    controller.disableHintsSection();
    mainQueue.settle();
    EXPECT_TRUE(shows("(Changes cannot be saved: disk full)|-|? new|-|1: new|snippet|-|"));
    EXPECT_FALSE(preferences.isOn(keys::hintsEnabled));
}

TEST_F(StatusMenuControllerTest, AKeyThatNeedsTheAnswerToASearchGetsItAtOnce) {
    insert(QStringLiteral("old"));
    insert(QStringLiteral("new"));
    controller.open(MenuVariant::main);
    emit renderer.searchChanged(QStringLiteral("old"));
    EXPECT_TRUE(shows("1: new"));
    emit renderer.answerNeeded();
    EXPECT_TRUE(shows("|? old|-|1: old|"));
    renderer.tree.clear();
    emit renderer.answerNeeded();
    mainQueue.settle();
    EXPECT_EQ(shown(), QString()) << "it was built twice";
}

TEST_F(StatusMenuControllerTest, ClosingForgetsEverythingButProblems) {
    renderer.held = Modifier::option | Modifier::control;
    controller.open(MenuVariant::copyHotKey);
    emit renderer.searchChanged(QStringLiteral("query"));
    controller.setSaveProblem(QStringLiteral("disk full"));
    insert(QStringLiteral("x"));
    const QString before = shown();
    renderer.close();
    mainQueue.advance(1s);
    EXPECT_EQ(shown(), before) << "a closed menu is not rebuilt";
    EXPECT_FALSE(controller.rootMenuIsOpen());
    EXPECT_EQ(controller.currentMenuVariant(), MenuVariant::main);
    EXPECT_FALSE(controller.isOptionModeActiveInOpenMenu());
    renderer.held = {};
    controller.open(MenuVariant::main);
    EXPECT_TRUE(shows("(Changes cannot be saved: disk full)|-|"));
    EXPECT_TRUE(shows("|? |-|Translate >|-|# Recent Clips|1: x|"));
}

TEST_F(StatusMenuControllerTest, TogglingClosesTheSameFlavourAndSwitchesToAnother) {
    controller.toggle(MenuVariant::main);
    controller.toggle(MenuVariant::pasteHotKey);
    EXPECT_TRUE(renderer.isOpen());
    EXPECT_EQ(controller.currentMenuVariant(), MenuVariant::pasteHotKey);
    controller.toggle(MenuVariant::pasteHotKey);
    EXPECT_FALSE(renderer.isOpen());
}

TEST_F(StatusMenuControllerTest, OptionModeFollowsTheKeyAndCountsItsUses) {
    insert(QStringLiteral("clip"));
    renderer.held = Modifier::option;
    controller.open(MenuVariant::main);
    EXPECT_TRUE(shows("1: clip >")) << "held when the menu opens";
    EXPECT_EQ(uses(), 0);
    renderer.hold({});
    mainQueue.settle();
    EXPECT_TRUE(shows("1: clip|"));
    renderer.hold(Modifier::option);
    renderer.hold(Modifier::option | Modifier::shift);
    mainQueue.settle();
    EXPECT_TRUE(shows("1: clip >"));
    EXPECT_EQ(uses(), 1);
    renderer.held = {}; // let go of while another program has the keyboard
    mainQueue.advance(StatusMenuController::modifierFlagsInterval);
    mainQueue.settle();
    EXPECT_TRUE(shows("1: clip|"));
    renderer.close();
    renderer.held = Modifier::option;
    mainQueue.advance(1s);
    EXPECT_EQ(uses(), 1) << "nobody looks at the keys while the menu is closed";
}

TEST_F(StatusMenuControllerTest, TitlesPromiseEditingNoLongerThanControlIsHeld) {
    insert(QStringLiteral("clip"));
    controller.open(MenuVariant::main);
    renderer.hold(Modifier::control);
    emit renderer.searchChanged(QStringLiteral("clip")); // Pasted with Control.
    mainQueue.settle();
    EXPECT_TRUE(shows("1: Edit and Paste: clip|"));
    renderer.hold({});
    mainQueue.settle();
    EXPECT_TRUE(shows("1: clip|"));
}

TEST_F(StatusMenuControllerTest, LongSubmenusAreFilledInTwoStepsAndNeverShrink) {
    insertLinks(199);
    const auto openSubmenu = [this] { emit renderer.submenuOpening(QStringLiteral("more-lazy-")); };
    controller.open(MenuVariant::main);
    openSubmenu();
    renderer.close();
    mainQueue.advance(1s);
    EXPECT_EQ(lengthsOfFills(), QList<qsizetype>({100})) << "the second step was cancelled";
    controller.open(MenuVariant::main);
    openSubmenu();
    mainQueue.settle();
    EXPECT_EQ(lengthsOfFills(), QList<qsizetype>({100, 100, 149}));
    insert(QStringLiteral("new"));
    mainQueue.settle();
    openSubmenu(); // As a renderer does whose submenu is open.
    mainQueue.settle();
    EXPECT_EQ(lengthsOfFills(), QList<qsizetype>({100, 100, 149, 150}));
}

TEST_F(StatusMenuControllerTest, ARebuiltMenuFillsItsSubmenusAnew) {
    insertLinks(1);
    controller.open(MenuVariant::main);
    emit renderer.submenuOpening(QStringLiteral("folder-lazy-links"));
    insertLinks(2);
    mainQueue.settle();
    emit renderer.submenuOpening(QStringLiteral("folder-lazy-links"));
    EXPECT_EQ(lengthsOfFills(), QList<qsizetype>({1, 2}));
}

/// Catches what is logged.
class LogLines {
public:
    LogLines() {
        s_lines.clear();
        m_former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&,
                                             const QString& line) { s_lines.append(line); });
    }
    ~LogLines() { qInstallMessageHandler(m_former); }

    static QString taken() { return std::exchange(s_lines, {}).join(u'|'); }

private:
    static inline QStringList s_lines;
    QtMessageHandler m_former;
};

TEST_F(StatusMenuControllerTest, TimingsTellOfAnOpeningOnce) {
    const LogLines log;
    insertLinks(120);
    controller.open(MenuVariant::main);
    renderer.close();
    EXPECT_EQ(LogLines::taken(), QString());
    preferences.set(keys::debugMenuTimings, true);
    controller.open(MenuVariant::main);
    clock.advance(12ms);
    emit renderer.painted();
    emit renderer.painted();
    mainQueue.advance(20ms);
    emit renderer.submenuOpening(QStringLiteral("folder-lazy-links"));
    mainQueue.settle();
    mainQueue.advance(780ms);
    renderer.close();
    EXPECT_EQ(LogLines::taken(),
              QStringLiteral("[MenuPerf] open|[MenuPerf] first-paint: +12ms|"
                             "[MenuPerf] paint: +12ms|"
                             "[MenuPerf] first-hydrate[folder-lazy-links] chunk=1/2: +32ms|"
                             "[MenuPerf] close: +812ms"));
}

TEST_F(StatusMenuControllerTest, TheWarmUpFillsTheFirstSubmenusUnlessTheMenuCloses) {
    insertLinks(40);
    preferences.set(keys::debugMenuTimings, true);
    const LogLines log;
    renderer.held = Modifier::option;
    controller.open(MenuVariant::main);
    mainQueue.advance(139ms);
    renderer.close();
    mainQueue.advance(1s);
    EXPECT_FALSE(LogLines::taken().contains(QStringLiteral("first-hydrate")));
    controller.open(MenuVariant::main);
    mainQueue.advance(140ms);
    EXPECT_TRUE(LogLines::taken().contains(
        QStringLiteral("] chunk=1/7: +140ms"))); // 28 of 41, four at a time
}

TEST_F(StatusMenuControllerTest, TheWarmUpFollowsWhatARebuildHasBroughtUnlessSomethingIsSearched) {
    const LogLines log;
    preferences.set(keys::debugMenuTimings, true);
    controller.open(MenuVariant::main);
    mainQueue.advance(1s);
    emit renderer.searchChanged(QStringLiteral("e"));
    insertLinks(1);
    mainQueue.advance(1s);
    EXPECT_FALSE(LogLines::taken().contains(QStringLiteral("first-hydrate")));
    emit renderer.searchChanged(QString());
    mainQueue.advance(140ms);
    EXPECT_TRUE(LogLines::taken().contains(QStringLiteral("first-hydrate[folder-lazy-links]")));
}

TEST_F(StatusMenuControllerTest, HintsThatAreSwitchedOnWhileTheMenuIsOpenAppear) {
    preferences.set(keys::hintsEnabled, false);
    controller.open(MenuVariant::main);
    preferences.set(keys::hintsEnabled, true);
    EXPECT_FALSE(shows("! Smart folders gather"));
    controller.rebuild();
    mainQueue.settle();
    EXPECT_TRUE(shows("! Smart folders gather"));
    EXPECT_EQ(preferences.record(keys::altHintMenuOpenCount).toInt(), 0) << "it is no opening";
}

} // namespace quorvel::testing
