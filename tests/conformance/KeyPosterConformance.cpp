#include "conformance/TestDesktop.h"
#include "conformance/X11Outside.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "platform/x11/X11KeyPoster.h"
#include "platform/x11/X11Workspace.h"
#include "support/FakeKeyPoster.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// What came of one paste: nothing so far, or each answer that was given.
using Outcomes = std::shared_ptr<QList<PostOutcome>>;

Outcomes post(KeyPoster& poster, const std::optional<FocusTarget>& target) {
    auto outcomes = std::make_shared<QList<PostOutcome>>();
    poster.postPaste(target, [outcomes](PostOutcome outcome) { outcomes->append(outcome); });
    return outcomes;
}

PostOutcome answer(const Outcomes& outcomes) {
    if (!waitUntil([&] { return !outcomes->isEmpty(); }))
        throw std::runtime_error("no answer");
    return outcomes->first();
}

/// No hot keys: the guard that never has anything to do.
class NoHotKeys final : public HotKeyGuard {
public:
    std::optional<xcb_keycode_t> heldKey() const override { return std::nullopt; }
    void standAside(xcb_keycode_t, quint16) override {}
    void standBack() override {}
};

TEST(KeyPosterConformance, answersOnceAndFromTheLoopWhereKeysCannotBePosted) {
    QtMainQueue queue;
    NoHotKeys noHotKeys;
    FakeKeyPoster fake;
    fake.setTrusted(false);
    fake.answerThrough(queue);
    X11Connection nowhere("no-such-host.invalid:99");
    X11KeyPoster real(nowhere, queue, noHotKeys, {[] {}, [](quint32) {}, [] { return true; }});
    for (KeyPoster* poster : std::initializer_list<KeyPoster*>{&fake, &real}) {
        EXPECT_FALSE(poster->isTrusted());
        const Outcomes first = post(*poster, std::nullopt);
        EXPECT_TRUE(first->isEmpty());
        EXPECT_EQ(answer(first), PostOutcome::unavailable);
        const Outcomes second = post(*poster, FocusTarget{1, 2, 3});
        EXPECT_EQ(answer(second), PostOutcome::unavailable);
        EXPECT_EQ(first->size(), 1);
    }
}

class X11KeyPosterTest : public testing::Test {
protected:
    X11KeyPosterTest()
        : m_limits{2ms, 60ms, 150ms} {}

    /// Limits for tests in which what is waited for does happen.
    void waitFor(std::chrono::milliseconds span) { m_limits = {2ms, span, span}; }

    X11KeyPoster& poster() {
        if (!m_poster)
            m_poster = std::make_unique<X11KeyPoster>(
                connection, queue, center,
                X11KeyPoster::Clipboard{[this] { ++primaryOffers; },
                                        [this](quint32 window) { readers.append(window); },
                                        [this] { return isSettled; }},
                m_limits);
        return *m_poster;
    }
    bool receives(xcb_window_t window, const X11Outside::Key& key) {
        return waitUntil([&] { return other.keys(window).contains(key); });
    }

    X11Outside other;
    X11Connection connection;
    QtMainQueue queue;
    X11HotKeyCenter center{connection.root()};
    int primaryOffers = 0;
    QList<quint32> readers;
    bool isSettled = true;

private:
    KeyPostLimits m_limits;
    std::unique_ptr<X11KeyPoster> m_poster;
};

constexpr quint16 controlState = XCB_MOD_MASK_CONTROL;
constexpr quint16 terminalState = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;

TEST_F(X11KeyPosterTest, everyProgramGetsItsOwnPasteKeysOnce) {
    struct Case {
        const char* windowClass;
        X11Outside::Key key;
        int primaryOffers;
    };
    const std::vector<Case> cases{
        {"Mousepad", {keyboard::v, controlState}, 0},
        {"XTerm", {keyboard::insert, XCB_MOD_MASK_SHIFT}, 1},
        {"URxvt", {keyboard::insert, XCB_MOD_MASK_SHIFT}, 1},
        {"Emacs", {keyboard::insert, XCB_MOD_MASK_SHIFT}, 0},
        {"Gnome-terminal", {keyboard::v, terminalState}, 0},
        {"st-256color", {keyboard::v, terminalState}, 0},
        {"org.gnome.Ptyxis", {keyboard::v, terminalState}, 0},
        {"com.mitchellh.ghostty", {keyboard::v, terminalState}, 0},
    };
    for (const auto& [windowClass, key, offers] : cases) {
        SCOPED_TRACE(windowClass);
        primaryOffers = 0;
        const xcb_window_t window = other.open(windowClass);
        const xcb_window_t element = other.addElement(window);
        other.focus(element);
        EXPECT_EQ(answer(post(poster(), FocusTarget{0, window, element})), PostOutcome::posted);
        EXPECT_TRUE(receives(element, key));
        EXPECT_EQ(answer(post(poster(), std::nullopt)), PostOutcome::posted);
        EXPECT_TRUE(waitUntil([&] { return other.keys(element).size() >= 2; }));
        EXPECT_THAT(other.keys(element), ElementsAre(key, key));
        EXPECT_EQ(primaryOffers, 2 * offers);
        EXPECT_THAT(readers, ElementsAre(element, element));
        readers.clear();
        other.close(window);
    }
}

TEST_F(X11KeyPosterTest, theCaretIsMovedAsFarAsAskedButNotInTerminals) {
    constexpr X11Outside::Key selectLeft = {113, XCB_MOD_MASK_SHIFT};
    for (const auto& [windowClass, wanted] : {std::pair("Mousepad", PostOutcome::posted),
                                              std::pair("Gnome-terminal", PostOutcome::unavailable),
                                              std::pair("XTerm", PostOutcome::unavailable)}) {
        SCOPED_TRACE(windowClass);
        const xcb_window_t window = other.open(windowClass);
        other.focus(window);
        const auto outcomes = std::make_shared<QList<PostOutcome>>();
        poster().postCaretKeys(FocusTarget{0, window, window}, CaretKeys::selectLeft, 3,
                               [outcomes](PostOutcome outcome) { outcomes->append(outcome); });
        EXPECT_EQ(answer(outcomes), wanted);
        other.type({keyboard::one}); // Whatever was sent before has arrived before this.
        EXPECT_TRUE(receives(window, {keyboard::one, 0}));
        EXPECT_EQ(other.keys(window).count(selectLeft), wanted == PostOutcome::posted ? 3 : 0);
        EXPECT_THAT(readers, IsEmpty());
        other.close(window);
    }
}

TEST_F(X11KeyPosterTest, keysNeverGoToAnotherWindow) {
    const xcb_window_t target = other.open("Mousepad");
    const xcb_window_t element = other.addElement(target);
    const xcb_window_t neighbour = other.open("Neighbour");
    const xcb_window_t gone = other.open("Gone");
    other.close(gone);
    other.focus(neighbour);
    for (const FocusTarget& wanted :
         {FocusTarget{0, target, element}, FocusTarget{0, target, 0}, FocusTarget{0, gone, gone},
          FocusTarget{0, target, neighbour}}) {
        const Outcomes outcomes = post(poster(), wanted);
        EXPECT_TRUE(outcomes->isEmpty());
        EXPECT_EQ(answer(outcomes), PostOutcome::focusElsewhere);
    }
    EXPECT_THAT(other.keys(neighbour), IsEmpty());
    EXPECT_THAT(other.keys(target), IsEmpty());
}

/// Takes the focus away at the moment in which the keys are about to be sent.
class FocusThief final : public HotKeyGuard {
public:
    explicit FocusThief(std::function<void()> steal)
        : m_steal(std::move(steal)) {}
    std::optional<xcb_keycode_t> heldKey() const override { return std::nullopt; }
    void standAside(xcb_keycode_t, quint16) override { m_steal(); }
    void standBack() override {}

private:
    std::function<void()> m_steal;
};

TEST_F(X11KeyPosterTest, aFocusThatIsLostAtAnyStepKeepsTheKeysBack) {
    const xcb_window_t target = other.open("Mousepad");
    const xcb_window_t neighbour = other.open("Neighbour");
    enum class Step { content, settling, keys };
    for (const Step stolenAt : {Step::content, Step::settling, Step::keys}) {
        SCOPED_TRACE(int(stolenAt));
        other.focus(target);
        const auto reach = [&](Step step) {
            if (step == stolenAt)
                other.focus(neighbour);
        };
        FocusThief thief([&] { reach(Step::keys); });
        const X11KeyPoster::Clipboard clipboard{[] {}, [&](quint32) { reach(Step::content); },
                                                [&] {
                                                    reach(Step::settling);
                                                    return true;
                                                }};
        X11KeyPoster hunted(connection, queue, thief, clipboard, {2ms, 60ms, 60ms});
        EXPECT_EQ(answer(post(hunted, FocusTarget{0, target, 0})), PostOutcome::focusElsewhere);
        other.type({keyboard::one}); // Whatever was sent before has arrived before this.
        ASSERT_TRUE(receives(neighbour, {keyboard::one, 0}));
        EXPECT_FALSE(other.keys(neighbour).contains(X11Outside::Key{keyboard::v, controlState}));
        EXPECT_THAT(other.keys(target), IsEmpty());
    }
}

TEST(X11KeyPosterWithoutWindowManager, nothingIsPostedWhenNobodyHasTheFocus) {
    PrivateDesktop::Options options;
    options.windowManager = false;
    const PrivateDesktop desktop(options);
    X11Outside other(desktop.display().toLatin1());
    X11Connection connection(desktop.display().toLatin1());
    QtMainQueue queue;
    NoHotKeys noHotKeys;
    X11KeyPoster poster(connection, queue, noHotKeys, {[] {}, [](quint32) {}, [] { return true; }},
                        {2ms, 60ms, 60ms});
    const xcb_window_t window = other.open("Mousepad");
    for (const quint32 nobody : {XCB_INPUT_FOCUS_NONE, XCB_INPUT_FOCUS_POINTER_ROOT}) {
        xcb_set_input_focus(other.connection().xcb(), XCB_INPUT_FOCUS_NONE, nobody,
                            XCB_CURRENT_TIME);
        ASSERT_EQ(other.focused(), nobody);
        EXPECT_EQ(answer(post(poster, std::nullopt)), PostOutcome::focusElsewhere);
    }
    other.focus(window);
    EXPECT_EQ(answer(post(poster, std::nullopt)), PostOutcome::posted);
    EXPECT_TRUE(waitUntil([&] { return !other.keys(window).isEmpty(); }));
}

TEST_F(X11KeyPosterTest, theFocusMayComeLater) {
    waitFor(usualPatience);
    const xcb_window_t target = other.open("Mousepad");
    const xcb_window_t element = other.addElement(target);
    other.focus(target);
    const Outcomes outcomes = post(poster(), FocusTarget{0, target, element});
    // The look that follows the first one has found the focus in the wrong place as well.
    int turns = 0;
    queue.after(20ms, &connection, [&turns] { ++turns; });
    ASSERT_TRUE(waitUntil([&] { return turns > 0; }));
    EXPECT_TRUE(outcomes->isEmpty());
    other.focus(element);
    EXPECT_EQ(answer(outcomes), PostOutcome::posted);
    EXPECT_TRUE(receives(element, {keyboard::v, controlState}));
    EXPECT_THAT(other.keys(target), IsEmpty());
}

TEST_F(X11KeyPosterTest, aProgramMayHandTheFocusOnToAPartOfItsElement) {
    const xcb_window_t target = other.open("Gtk4Editor");
    const xcb_window_t part = other.addElement(target);
    other.focus(part);
    EXPECT_EQ(answer(post(poster(), FocusTarget{0, target, target})), PostOutcome::posted);
    EXPECT_TRUE(receives(part, {keyboard::v, controlState}));
}

TEST_F(X11KeyPosterTest, noKeyIsSentBeforeTheServerKnowsTheNewContent) {
    const xcb_window_t target = other.open("Mousepad");
    other.focus(target);
    isSettled = false;
    EXPECT_EQ(answer(post(poster(), std::nullopt)), PostOutcome::unavailable) << "given up in time";
    const Outcomes outcomes = post(poster(), std::nullopt);
    queue.after(20ms, &connection, [this] { isSettled = true; });
    EXPECT_EQ(answer(outcomes), PostOutcome::posted);
    EXPECT_TRUE(isSettled);
    EXPECT_TRUE(receives(target, {keyboard::v, controlState}));
}

TEST_F(X11KeyPosterTest, anElementThatIsGoneStandsForItsWindow) {
    const xcb_window_t target = other.open("Mousepad");
    const xcb_window_t old = other.addElement(target);
    const xcb_window_t fresh = other.addElement(target);
    other.close(old);
    for (const xcb_window_t place : {target, fresh}) {
        other.focus(place);
        EXPECT_EQ(answer(post(poster(), FocusTarget{0, target, old})), PostOutcome::posted);
        EXPECT_TRUE(receives(place, {keyboard::v, controlState}));
    }
}

TEST_F(X11KeyPosterTest, modifiersThatStayDownAreTakenOutOfTheWayAndPutBack) {
    const xcb_window_t target = other.open("Mousepad");
    other.focus(target);
    for (const xcb_keycode_t key : {keyboard::shift, keyboard::alt, keyboard::control})
        other.press(key);
    other.type({keyboard::capsLock});
    EXPECT_EQ(answer(post(poster(), FocusTarget{0, target, target})), PostOutcome::posted);
    EXPECT_TRUE(receives(target, {keyboard::v, controlState | XCB_MOD_MASK_LOCK}));
    for (const xcb_keycode_t key : {keyboard::shift, keyboard::alt, keyboard::control})
        EXPECT_TRUE(other.isDown(key)) << int(key);
    EXPECT_FALSE(other.isDown(keyboard::v));
    other.type({keyboard::capsLock});
}

TEST_F(X11KeyPosterTest, waitsForTheUserToLetGo) {
    waitFor(usualPatience);
    const xcb_window_t target = other.open("Mousepad");
    other.focus(target);
    other.press(keyboard::shift);
    const Outcomes outcomes = post(poster(), FocusTarget{0, target, target});
    int turns = 0;
    queue.after(20ms, &connection, [&turns] { ++turns; });
    ASSERT_TRUE(waitUntil([&] { return turns > 0; }));
    EXPECT_TRUE(outcomes->isEmpty());
    other.release(keyboard::shift);
    EXPECT_EQ(answer(outcomes), PostOutcome::posted);
    EXPECT_TRUE(receives(target, {keyboard::v, controlState}));
    EXPECT_FALSE(other.isDown(keyboard::shift));
}

TEST_F(X11KeyPosterTest, ourOwnKeysAreNoHotKeysAndTheUsersStillAre) {
    QList<quint32> pressed;
    QObject::connect(&center, &HotKeyCenter::pressed, &center,
                     [&](quint32 id) { pressed.append(id); });
    ASSERT_EQ(center.registerHotKey(keyboard::v, Modifier::control | Modifier::shift, 4).status, 0);
    const xcb_window_t terminal = other.open("Xfce4-terminal");
    other.focus(terminal);
    for (quint32 round = 1; round <= 50; ++round) {
        EXPECT_EQ(answer(post(poster(), FocusTarget{0, terminal, terminal})), PostOutcome::posted);
        ASSERT_TRUE(waitUntil([&] { return other.keys(terminal).size() == round; }));
        EXPECT_EQ(other.keys(terminal).last(), (X11Outside::Key{keyboard::v, terminalState}));
        EXPECT_EQ(pressed.size(), round - 1) << "our own keys";
        other.type({keyboard::control, keyboard::shift, keyboard::v});
        ASSERT_TRUE(waitUntil([&] { return pressed.size() == round; })) << "the user's keys";
    }
    EXPECT_EQ(other.keys(terminal).size(), 50) << "the user's keys stay with us";
}

TEST_F(X11KeyPosterTest, aHotKeyThatIsStillHeldDoesNotKeepTheKeysFromTheTarget) {
    struct Case {
        const char* what;
        QList<xcb_keycode_t> held;
        const char* windowClass;
        X11Outside::Key key;
    };
    const std::vector<Case> cases{
        {"another key",
         {keyboard::control, keyboard::super, keyboard::one},
         "Mousepad",
         {keyboard::v, controlState}},
        {"the very same keys",
         {keyboard::control, keyboard::shift, keyboard::v},
         "Konsole",
         {keyboard::v, terminalState}},
        {"the same key alone",
         {keyboard::control, keyboard::shift, keyboard::v},
         "Mousepad",
         {keyboard::v, controlState}},
    };
    QList<quint32> pressed;
    QObject::connect(&center, &HotKeyCenter::pressed, &center,
                     [&](quint32 id) { pressed.append(id); });
    ASSERT_EQ(center.registerHotKey(keyboard::v, Modifier::control | Modifier::shift, 4).status, 0);
    ASSERT_EQ(center.registerHotKey(keyboard::one, Modifier::control | Modifier::command, 5).status,
              0);
    for (const auto& [what, held, windowClass, key] : cases) {
        SCOPED_TRACE(what);
        const xcb_window_t target = other.open(windowClass);
        other.focus(target);
        const qsizetype before = pressed.size();
        for (const xcb_keycode_t code : held)
            other.press(code);
        ASSERT_TRUE(waitUntil([&] { return pressed.size() == before + 1; }));
        EXPECT_EQ(answer(post(poster(), FocusTarget{0, target, target})), PostOutcome::posted);
        EXPECT_TRUE(receives(target, key));
        for (const xcb_keycode_t code : held)
            other.release(code);
        EXPECT_EQ(pressed.size(), before + 1);
        other.type(held);
        EXPECT_TRUE(waitUntil([&] { return pressed.size() == before + 2; }));
    }
}

TEST(StrokeActions, surroundTheStrokeWithTheUsersKeys) {
    const auto press = KeyAction::press;
    const auto release = KeyAction::release;
    EXPECT_THAT(strokeActions({55, {37}}, {}, {}),
                ElementsAre(KeyAction{release, 37}, KeyAction{press, 37}, KeyAction{press, 55},
                            KeyAction{release, 55}, KeyAction{release, 37}));
    EXPECT_THAT(strokeActions({55, {37, 50}}, {64}, {10}),
                ElementsAre(KeyAction{release, 10}, KeyAction{release, 64}, KeyAction{release, 50},
                            KeyAction{release, 37}, KeyAction{press, 37}, KeyAction{press, 50},
                            KeyAction{press, 55}, KeyAction{release, 55}, KeyAction{release, 50},
                            KeyAction{release, 37}, KeyAction{press, 64}));
}

ProgramResult xclip(const QString& selection, const QString& way, const QByteArray& input = {}) {
    return testDesktop().run(QStringLiteral("xclip"),
                             {QStringLiteral("-selection"), selection, way}, input);
}

/// Real programs: what was on the clipboard arrives in them.
class RealProgramTest : public X11KeyPosterTest {
protected:
    RealProgramTest() { waitFor(2s); }

    /// The program's place in front, once its focus lies in its window.
    FocusTarget placeIn(const ChildProgram& program) {
        FocusTarget found;
        const bool inFront = waitUntil([&] {
            const auto front = workspace.frontmostApplication();
            if (!front || front->processIdentifier != program.pid())
                return false;
            found = {program.pid(), front->window, workspace.focusedElement()};
            return X11Windows(connection)
                .isInside(xcb_window_t(found.element), xcb_window_t(found.window));
        });
        return inFront ? found : throw std::runtime_error("the program did not come to the front");
    }

    /// The next test finds the desktop without the program.
    void end(std::unique_ptr<ChildProgram> program, const FocusTarget& place) {
        program.reset();
        EXPECT_TRUE(waitUntil([&] { return !workspace.isRunning(place); }));
    }

    SystemClock clock;
    ThreadBackgroundQueue background;
    DesktopFiles desktopFiles{DesktopSources::fromEnvironment(), clock, background};
    X11Workspace workspace{connection, desktopFiles};
};

class RealProgramPaste : public RealProgramTest, public testing::WithParamInterface<const char*> {};

TEST_P(RealProgramPaste, theClipboardArrives) {
    auto editor = testDesktop().start(QString::fromLatin1(GetParam()));
    const QString clipboard = QStringLiteral("clipboard");
    const QByteArray text = QByteArray("pasted into ") + GetParam();
    const auto type = [](const QStringList& keys) {
        testDesktop().run(QStringLiteral("xdotool"), QStringList(QStringLiteral("key")) + keys);
    };
    FocusTarget place = placeIn(*editor);
    // Again and again: a program that has just come up drops keys and moves its focus.
    EXPECT_TRUE(waitUntil([&] {
        place = placeIn(*editor);
        xclip(clipboard, QStringLiteral("-i"), text);
        type({QStringLiteral("less")});
        if (answer(post(poster(), place)) != PostOutcome::posted)
            return false;
        type({QStringLiteral("ctrl+a"), QStringLiteral("ctrl+c"), QStringLiteral("ctrl+End")});
        return xclip(clipboard, QStringLiteral("-o")).output.contains('<' + text);
    }));
    end(std::move(editor), place);
}

TEST_F(RealProgramTest, aTerminalGetsTheTextFromPrimary) {
    const QString path = testDesktop().folder() + QStringLiteral("/pasted-into-xterm");
    auto terminal = testDesktop().start(QStringLiteral("xterm"),
                                        {QStringLiteral("-e"), QStringLiteral("cat > ") + path});
    const FocusTarget place = placeIn(*terminal);
    const QByteArray text = "from primary\n";
    const auto offerPrimary = [&] {
        const QString primary = QStringLiteral("primary");
        xclip(primary, QStringLiteral("-i"), text);
        // It becomes the owner in the background.
        waitUntil([&] { return xclip(primary, QStringLiteral("-o")).output == text; });
    };
    X11KeyPoster toTerminals(connection, queue, center,
                             {offerPrimary, [](quint32) {}, [] { return true; }});
    const auto arrived = [&] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) && file.readAll() == text;
    };
    EXPECT_EQ(answer(post(toTerminals, place)), PostOutcome::posted);
    EXPECT_TRUE(waitUntil(arrived));
    end(std::move(terminal), place);
}

INSTANTIATE_TEST_SUITE_P(Editors, RealProgramPaste, testing::Values("mousepad", "featherpad"),
                         [](const auto& program) { return std::string(program.param); });

} // namespace

} // namespace quorvel
