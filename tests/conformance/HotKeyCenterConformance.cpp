#include "conformance/TestDesktop.h"
#include "conformance/X11Outside.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "support/FakeHotKeyCenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {

namespace {

using testing::ElementsAre;

/// A hot key center, the user at the keyboard and another program.
class HotKeyOutside {
public:
    virtual ~HotKeyOutside() = default;

    virtual HotKeyCenter& center() = 0;
    virtual void press(KeyPosition position, Modifiers modifiers) = 0;

    /// Another program takes the combination.
    virtual void take(KeyPosition position, Modifiers modifiers) = 0;
};

class FakeHotKeyOutside final : public HotKeyOutside {
public:
    HotKeyCenter& center() override { return m_center; }
    void press(KeyPosition position, Modifiers modifiers) override {
        m_center.press(position, modifiers);
    }
    void take(KeyPosition position, Modifiers modifiers) override {
        m_center.take(position, modifiers);
    }

private:
    FakeHotKeyCenter m_center;
};

class X11HotKeyOutside final : public HotKeyOutside {
public:
    HotKeyCenter& center() override { return m_center; }
    X11Outside& other() { return m_other; }

    void press(KeyPosition position, Modifiers modifiers) override {
        m_other.type(held(modifiers) + QList<xcb_keycode_t>{xcb_keycode_t(position)});
    }
    void take(KeyPosition position, Modifiers modifiers) override {
        quint16 mask = 0;
        for (const auto& [modifier, key, bit] : table)
            mask |= modifiers.testFlag(modifier) ? bit : 0;
        if (!m_other.grab(xcb_keycode_t(position), mask))
            throw std::runtime_error("the combination was not free");
    }

private:
    struct Row {
        Modifier modifier;
        xcb_keycode_t key;
        quint16 bit;
    };
    static constexpr Row table[] = {
        {Modifier::control, keyboard::control, XCB_MOD_MASK_CONTROL},
        {Modifier::shift, keyboard::shift, XCB_MOD_MASK_SHIFT},
        {Modifier::option, keyboard::alt, XCB_MOD_MASK_1},
        {Modifier::command, keyboard::super, XCB_MOD_MASK_4},
    };

    static QList<xcb_keycode_t> held(Modifiers modifiers) {
        QList<xcb_keycode_t> keys;
        for (const auto& [modifier, key, bit] : table)
            if (modifiers.testFlag(modifier))
                keys.append(key);
        return keys;
    }

    X11Outside m_other;
    X11HotKeyCenter m_center{m_other.connection().root()};
};

struct Adapter {
    const char* name;
    std::unique_ptr<HotKeyOutside> (*make)();
};

std::ostream& operator<<(std::ostream& stream, const Adapter& adapter) {
    return stream << adapter.name;
}

/// Collects what a center emits.
struct Listener {
    explicit Listener(HotKeyCenter& center) {
        QObject::connect(&center, &HotKeyCenter::pressed, &center,
                         [this](quint32 id, Modifiers modifiers) {
                             ids.append(id);
                             held.append(modifiers);
                         });
        QObject::connect(&center, &HotKeyCenter::keyboardChanged, &center,
                         [this] { ++keyboardChanges; });
    }
    QList<quint32> ids;
    QList<Modifiers> held; ///< With each of them.
    int keyboardChanges = 0;
};

class HotKeyCenterConformance : public testing::TestWithParam<Adapter> {
protected:
    bool reach(qsizetype presses) {
        return waitUntil([&] { return listener.ids.size() >= presses; });
    }

    std::unique_ptr<HotKeyOutside> outside = GetParam().make();
    HotKeyCenter& center = outside->center();
    Listener listener{center};
};

TEST_P(HotKeyCenterConformance, eachCombinationReachesItsOwnId) {
    const KeyPosition v = *center.positionFor(u'v');
    const Modifiers all = Modifier::control | Modifier::shift | Modifier::option;
    ASSERT_EQ(center.registerHotKey(v, Modifier::control | Modifier::shift, 4).status, 0);
    ASSERT_EQ(center.registerHotKey(v, Modifier::command | Modifier::shift, 1).status, 0);
    ASSERT_EQ(center.registerHotKey(v, all, 9).status, 0);
    const KeyPosition nought = center.numberRowPosition(9);
    ASSERT_EQ(center.registerHotKey(nought, Modifier::control | Modifier::command, 109).status, 0);

    outside->press(v, Modifier::control | Modifier::shift);
    outside->press(v, Modifier::control);
    outside->press(v, Modifier::command | Modifier::shift);
    outside->press(*center.positionFor(u'b'), Modifier::control | Modifier::shift);
    outside->press(v, all);
    outside->press(nought, Modifier::control | Modifier::command);
    EXPECT_TRUE(reach(4));
    EXPECT_THAT(listener.ids, ElementsAre(4U, 1U, 9U, 109U));
}

TEST_P(HotKeyCenterConformance, aTakenCombinationIsAStatusAndTheOthersWork) {
    const KeyPosition x = *center.positionFor(u'x');
    const KeyPosition a = *center.positionFor(u'a');
    const Modifiers modifiers = Modifier::control | Modifier::shift;
    outside->take(x, modifiers);
    const HotKeyRegistration taken = center.registerHotKey(x, modifiers, 6);
    EXPECT_EQ(taken.status, 10);
    EXPECT_EQ(taken.reference, 0U);
    EXPECT_EQ(center.registerHotKey(a, modifiers, 7).status, 0);
    const HotKeyRegistration twice = center.registerHotKey(a, modifiers, 8);
    EXPECT_EQ(twice.status, 10) << "our own combination is taken as well";
    center.unregisterHotKey(twice.reference);
    outside->press(x, modifiers);
    outside->press(a, modifiers);
    EXPECT_TRUE(reach(1));
    EXPECT_THAT(listener.ids, ElementsAre(7U));
}

TEST_P(HotKeyCenterConformance, anUnregisteredKeyIsFreeForOthers) {
    const KeyPosition t = *center.positionFor(u't');
    const KeyPosition a = *center.positionFor(u'a');
    const auto first = center.registerHotKey(t, Modifier::option, 3);
    ASSERT_EQ(center.registerHotKey(a, Modifier::option, 7).status, 0);
    center.unregisterHotKey(first.reference);
    center.unregisterHotKey(first.reference);
    outside->press(t, Modifier::option);
    outside->press(a, Modifier::option);
    EXPECT_TRUE(reach(1));
    EXPECT_THAT(listener.ids, ElementsAre(7U));
    EXPECT_NO_THROW(outside->take(t, Modifier::option));
}

TEST_P(HotKeyCenterConformance, optionalModifiersAreToldAndNoneOfThemHasToBeFree) {
    const KeyPosition one = center.numberRowPosition(0);
    const Modifiers base = Modifier::control | Modifier::command;
    const Modifiers optional = Modifier::shift | Modifier::option;
    outside->take(one, base | Modifier::option);
    const auto registration = center.registerHotKey(one, base, 100, optional);
    ASSERT_EQ(registration.status, 0);
    EXPECT_EQ(center.registerHotKey(one, base | Modifier::shift, 8).status, 10);
    outside->press(one, base | Modifier::option);
    outside->press(one, Modifier::control | Modifier::shift);
    for (const Modifiers further : {Modifiers(), Modifiers(Modifier::shift), optional})
        outside->press(one, base | further);
    EXPECT_TRUE(reach(3));
    EXPECT_THAT(listener.ids, ElementsAre(100U, 100U, 100U));
    EXPECT_THAT(listener.held, ElementsAre(base, base | Modifier::shift, base | optional));
    center.unregisterHotKey(registration.reference);
    EXPECT_NO_THROW(outside->take(one, base | optional));
    EXPECT_NO_THROW(outside->take(one, base));
}

INSTANTIATE_TEST_SUITE_P(Adapters, HotKeyCenterConformance,
                         testing::Values(Adapter{"fake",
                                                 []() -> std::unique_ptr<HotKeyOutside> {
                                                     return std::make_unique<FakeHotKeyOutside>();
                                                 }},
                                         Adapter{"x11",
                                                 []() -> std::unique_ptr<HotKeyOutside> {
                                                     return std::make_unique<X11HotKeyOutside>();
                                                 }}),
                         [](const auto& adapter) { return std::string(adapter.param.name); });

/// What only the keyboards of X11 ask of it.
class X11HotKeyCenterTest : public testing::Test {
protected:
    ~X11HotKeyCenterTest() override { layout({QStringLiteral("us")}); }

    static void layout(const QStringList& arguments) {
        const auto result = testDesktop().run(QStringLiteral("setxkbmap"),
                                              QStringList(QStringLiteral("-layout")) + arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.constData();
    }

    X11HotKeyOutside outside;
    HotKeyCenter& center = outside.center();
    Listener listener{center};
};

TEST_F(X11HotKeyCenterTest, neitherLockKeysNorTheLayoutMakeADifference) {
    layout({QStringLiteral("us,ru,us"), QStringLiteral("-variant"), QStringLiteral(",,dvorak")});
    ASSERT_TRUE(waitUntil([&] { return listener.keyboardChanges > 0; }));
    const Modifiers base = Modifier::control | Modifier::command;
    ASSERT_EQ(center.registerHotKey(keyboard::v, base, 4, Modifier::shift).status, 0);
    qsizetype presses = 0;
    const auto press = [&](Modifiers modifiers) {
        outside.press(keyboard::v, modifiers);
        ++presses;
        return waitUntil([&] { return listener.ids.size() == presses; }) &&
               listener.held.last() == modifiers;
    };
    for (const int group : {0, 1, 2}) {
        outside.other().chooseGroup(group);
        // Four taps come back to where we were.
        for (const xcb_keycode_t lock :
             {keyboard::capsLock, keyboard::numLock, keyboard::capsLock, keyboard::numLock}) {
            outside.other().type({lock});
            EXPECT_TRUE(press(base)) << group << ' ' << int(lock);
            EXPECT_TRUE(press(base | Modifier::shift)) << group << ' ' << int(lock);
        }
    }
    outside.other().chooseGroup(0);
}

TEST_F(X11HotKeyCenterTest, whenOneLockVariantIsTakenNoneIsKept) {
    X11Outside third;
    ASSERT_TRUE(third.grab(keyboard::v, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK));
    EXPECT_EQ(center.registerHotKey(keyboard::v, Modifier::control, 1).status, 10);
    for (const int locks : {0, int(XCB_MOD_MASK_2), XCB_MOD_MASK_2 | XCB_MOD_MASK_LOCK})
        EXPECT_TRUE(third.grab(keyboard::v, quint16(XCB_MOD_MASK_CONTROL | locks))) << locks;
}

TEST_F(X11HotKeyCenterTest, charactersAreFoundInEveryLayout) {
    struct Case {
        QString layouts;
        QChar character;
        KeyPosition position;
    };
    const std::vector<Case> cases{
        {QStringLiteral("us"), u'v', 55},         {QStringLiteral("us"), u'V', 55},
        {QStringLiteral("us"), u'1', 10},         {QStringLiteral("us"), u'+', 21},
        {QStringLiteral("us(dvorak)"), u'v', 60}, {QStringLiteral("fr"), u'a', 24},
        {QStringLiteral("fr"), u'1', 10},         {QStringLiteral("ru"), u'v', 55},
        {QStringLiteral("ru"), u'м', 55},         {QStringLiteral("ru,us"), u'v', 55},
        {QStringLiteral("ru,fr"), u'a', 24},      {QStringLiteral("de"), u'z', 29},
    };
    for (const Case& testCase : cases) {
        SCOPED_TRACE(testCase.layouts.toStdString() + " " +
                     QString(testCase.character).toStdString());
        layout({testCase.layouts});
        EXPECT_TRUE(waitUntil([&] {
            return center.positionFor(testCase.character) == testCase.position;
        })) << center.positionFor(testCase.character).value_or(0);
    }
    EXPECT_EQ(center.positionFor(u'漢'), std::nullopt);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(center.numberRowPosition(i), KeyPosition(10 + i));
}

TEST_F(X11HotKeyCenterTest, aKeyIsNamedByACharacterThatFindsItAgain) {
    struct Case {
        QString layouts;
        int group;
        KeyPosition position;
        std::optional<QChar> character;
    };
    constexpr KeyPosition slash = 61, caret = 49, enter = 36, keypadOne = 87;
    const std::vector<Case> cases{
        {QStringLiteral("us"), 0, keyboard::v, u'v'},
        {QStringLiteral("us(dvorak)"), 0, keyboard::v, u'k'},
        {QStringLiteral("fr"), 0, keyboard::one, u'&'},
        {QStringLiteral("de"), 0, 29, u'z'},
        {QStringLiteral("de"), 0, 48, QChar(u'ä')},
        {QStringLiteral("ru"), 0, keyboard::v, u'v'},
        {QStringLiteral("ru,us"), 0, keyboard::v, u'v'},
        {QStringLiteral("ru,fr"), 0, 24, u'a'},
        {QStringLiteral("us,ru"), 1, keyboard::v, u'v'},
        {QStringLiteral("us,ru"), 1, slash, u'.'}, // a slash is on another key there
        {QStringLiteral("de"), 0, caret, u'`'},    // a dead key
        {QStringLiteral("us"), 0, enter, std::nullopt},
        {QStringLiteral("us"), 0, keypadOne, std::nullopt},
    };
    for (const auto& [layouts, group, position, character] : cases) {
        SCOPED_TRACE(layouts.toStdString() + " " + std::to_string(position));
        layout({layouts});
        outside.other().chooseGroup(group);
        EXPECT_TRUE(waitUntil([&] { return center.characterAt(position) == character; }))
            << qPrintable(QString(center.characterAt(position).value_or(u'?')));
        if (character) {
            EXPECT_EQ(center.positionFor(*character), position);
        }
        outside.other().chooseGroup(0);
    }
}

TEST_F(X11HotKeyCenterTest, aMovedKeyIsAnnounced) {
    layout({QStringLiteral("us,us"), QStringLiteral("-variant"), QStringLiteral(",dvorak")});
    EXPECT_TRUE(waitUntil([&] { return listener.keyboardChanges > 0; }));
    for (const auto& [group, position] : {std::pair(1, 60), std::pair(0, 55)}) {
        const int before = listener.keyboardChanges;
        outside.other().chooseGroup(group);
        EXPECT_TRUE(waitUntil([&] { return listener.keyboardChanges > before; })) << group;
        EXPECT_EQ(center.positionFor(u'v'), KeyPosition(position));
    }
}

TEST_F(X11HotKeyCenterTest, aGroupThatMovesNothingIsNotAnnouncedAndKeysWorkInIt) {
    layout({QStringLiteral("de,de"), QStringLiteral("-variant"), QStringLiteral(",nodeadkeys")});
    ASSERT_TRUE(waitUntil([&] { return center.positionFor(u'z') == KeyPosition(29); }));
    ASSERT_EQ(center.registerHotKey(keyboard::v, Modifier::control, 1).status, 0);
    outside.press(keyboard::v, Modifier::control);
    ASSERT_TRUE(waitUntil([&] { return listener.ids.size() == 1; }));
    const int before = listener.keyboardChanges;
    outside.other().chooseGroup(1);
    outside.press(keyboard::v, Modifier::control);
    ASSERT_TRUE(waitUntil([&] { return listener.ids.size() == 2; }));
    outside.other().chooseGroup(0);
    EXPECT_EQ(listener.keyboardChanges, before);
}

/// Counts what the server sends us, before anybody else looks at it.
class PressCounter final : public QAbstractNativeEventFilter {
public:
    PressCounter() { qApp->installNativeEventFilter(this); }
    ~PressCounter() override { qApp->removeNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        count += (event->response_type & 0x7f) == XCB_KEY_PRESS ? 1 : 0;
        return false;
    }

    int count = 0;
};

TEST_F(X11HotKeyCenterTest, aKeyThatRepeatsIsPressedOnce) {
    const auto setRepeat = [](const QStringList& rate) {
        testDesktop().run(QStringLiteral("xset"), QStringList(QStringLiteral("r")) + rate);
    };
    setRepeat({QStringLiteral("rate"), QStringLiteral("30"), QStringLiteral("100")});
    ASSERT_EQ(center.registerHotKey(keyboard::v, Modifier::control, 1).status, 0);
    outside.other().press(keyboard::control);
    for (qsizetype presses = 1; presses <= 2; ++presses) {
        const PressCounter arrived;
        outside.other().press(keyboard::v);
        EXPECT_TRUE(waitUntil([&] { return arrived.count >= 5; }));
        outside.other().release(keyboard::v);
        EXPECT_EQ(listener.ids.size(), presses);
    }
    setRepeat({QStringLiteral("rate")});
}

TEST_F(X11HotKeyCenterTest, whatIsNoKeyIsRefused) {
    EXPECT_NE(center.registerHotKey(300, Modifier::control, 1).status, 0);
    EXPECT_NE(center.registerHotKey(2, Modifier::control, 1).status, 0);
}

} // namespace

} // namespace quorvel
