#include "CoreRig.h"
#include "FakeHotKeyCenter.h"

#include "paste/GlobalHotKeys.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace quorvel::testing {

class GlobalHotKeysTest : public ::testing::Test, protected CoreRig {
protected:
    using Result = HotKeyState::Result;
    static constexpr Modifiers superShift = Modifier::command | Modifier::shift;
    static constexpr Modifiers controlSuper = Modifier::control | Modifier::command;
    static constexpr qsizetype fixedKeys = 10;

    GlobalHotKeysTest() {
        for (const HotKeyId id : {HotKeyId::openMenu, HotKeyId::pastePlainText})
            hotKeys.setHandling(id, GlobalHotKeys::Handling::handled);
    }

    void store(const QString& key, quint32 modifiers) {
        preferences.set(keys::openMenuHotKey, SnippetShortcut{key, modifiers});
    }
    const HotKeyState& state(qsizetype index) const { return hotKeys.states().at(index); }

    FakeHotKeyCenter center;
    GlobalHotKeys hotKeys{center, preferences, CoreRig::store};
    QSignalSpy pressed{&hotKeys, &GlobalHotKeys::pressed};
};

TEST_F(GlobalHotKeysTest, FollowThePreferencesWithOneRegistrationEach) {
    hotKeys.registerAll();
    EXPECT_TRUE(center.press('v', superShift));
    store(QStringLiteral("K"), 0x40000);
    EXPECT_FALSE(center.press('v', superShift));
    EXPECT_TRUE(center.press('k', Modifier::control));
    EXPECT_TRUE(center.press('v', Modifier::control | Modifier::shift));
    EXPECT_EQ(pressed.size(), 3);
    EXPECT_EQ(center.registrationCount(), fixedKeys + 2);
}

TEST_F(GlobalHotKeysTest, NoKeyIsTakenForWhatNobodyAnswers) {
    hotKeys.registerAll();
    EXPECT_FALSE(center.press('a', superShift));
    EXPECT_EQ(state(4).result, Result::off);
    hotKeys.setHandling(HotKeyId::appendSelection, GlobalHotKeys::Handling::handled);
    EXPECT_TRUE(center.press('a', superShift));
    EXPECT_EQ(state(4).result, Result::bound);
    hotKeys.setHandling(HotKeyId::appendSelection, GlobalHotKeys::Handling::none);
    EXPECT_FALSE(center.press('a', superShift));
}

TEST_F(GlobalHotKeysTest, TheNumberRowTellsWhatElseIsHeld) {
    hotKeys.registerAll();
    for (const Modifiers further :
         {Modifiers(), Modifiers(Modifier::shift), Modifiers(Modifier::option),
          Modifier::shift | Modifier::option})
        EXPECT_TRUE(center.press('0', controlSuper | further));
    EXPECT_FALSE(center.press('0', Modifier::command));
    ASSERT_EQ(pressed.size(), 4);
    EXPECT_EQ(pressed.at(0).at(0).value<HotKeyId>(), HotKeyId(109));
    EXPECT_EQ(pressed.at(3).at(1).value<Modifiers>(),
              controlSuper | Modifier::shift | Modifier::option);
    EXPECT_EQ(recentClipPosition(HotKeyId(109)), 9);
    for (const quint32 id : {1u, 99u, 110u})
        EXPECT_EQ(recentClipPosition(HotKeyId(id)), std::nullopt) << id;
}

TEST_F(GlobalHotKeysTest, ATakenOrMissingKeyIsAStateAndTheOthersWork) {
    center.take('v', superShift);
    hotKeys.registerAll();
    EXPECT_EQ(state(0).result, Result::taken);
    EXPECT_EQ(state(0).status, 10);
    EXPECT_EQ(state(0).takenBy, QString());
    EXPECT_EQ(center.registrationCount(), fixedKeys + 1);
    center.removeKey(u'q');
    store(QStringLiteral("q"), 0x40000);
    EXPECT_EQ(state(0).result, Result::noSuchKey);
}

TEST_F(GlobalHotKeysTest, OfTwoWithTheSameKeysTheSecondIsTakenByTheFirst) {
    hotKeys.registerAll();
    store(QStringLiteral("v"), 0x60000);
    EXPECT_EQ(state(0).result, Result::bound);
    EXPECT_EQ(state(2).result, Result::taken);
    EXPECT_EQ(state(2).takenBy, QStringLiteral("openMenuHotKey"));
    store(QStringLiteral("5"), controlSuper.toInt());
    EXPECT_EQ(state(2).result, Result::bound);
    EXPECT_EQ(state(5 + 4).takenBy, QStringLiteral("openMenuHotKey"));
}

TEST_F(GlobalHotKeysTest, AShortcutThatWouldTakeALetterFromEveryProgramIsNotTaken) {
    for (const quint32 modifiers : {0x0u, 0x20000u, 0x10000u}) {
        store(QStringLiteral("e"), modifiers);
        hotKeys.registerAll();
        EXPECT_FALSE(center.press('e', Modifiers::fromInt(modifiers & modifierMask)));
        EXPECT_TRUE(center.press('v', superShift)) << "the default";
        EXPECT_TRUE(preferences.hasUnusableHotKey(keys::openMenuHotKey));
    }
    store(QStringLiteral("E"), 0x40000);
    EXPECT_FALSE(preferences.hasUnusableHotKey(keys::openMenuHotKey));
}

TEST_F(GlobalHotKeysTest, WhileSuspendedNothingIsRegistered) {
    hotKeys.registerAll();
    hotKeys.suspend();
    hotKeys.suspend();
    emit center.keyboardChanged(KeyboardChange::everything);
    store(QStringLiteral("k"), 0x40000);
    hotKeys.resume();
    EXPECT_EQ(center.registrationCount(), 0);
    hotKeys.resume();
    EXPECT_EQ(center.registrationCount(), fixedKeys + 2);
    EXPECT_TRUE(center.press('k', Modifier::control));
}

TEST_F(GlobalHotKeysTest, RegisteredAnewWhenTheKeyboardChangesButNotAfterTheEnd) {
    hotKeys.registerAll();
    emit center.keyboardChanged(KeyboardChange::everything);
    EXPECT_EQ(center.registrationCount(), fixedKeys + 2);
    hotKeys.unregisterAll();
    emit center.keyboardChanged(KeyboardChange::everything);
    store(QStringLiteral("k"), 0x40000);
    EXPECT_EQ(center.registrationCount(), 0);
}

TEST_F(GlobalHotKeysTest, OnlyKeysThatMovedAreLetGoOf) {
    hotKeys.registerAll();
    const int before = center.registrationsMade;
    center.moveKey('v', 'k');
    emit center.keyboardChanged(KeyboardChange::positions);
    EXPECT_EQ(center.registrationsMade, before + 2) << "two of the defaults are on it";
    EXPECT_EQ(center.registrationCount(), fixedKeys + 2);
    EXPECT_TRUE(center.press('k', superShift));
    EXPECT_FALSE(center.press('v', superShift));

    store(QStringLiteral("b"), controlSuper.toInt());
    center.moveKey('b', '5');
    emit center.keyboardChanged(KeyboardChange::positions);
    EXPECT_EQ(state(0).result, Result::bound) << "in the order of the table";
    EXPECT_EQ(state(5 + 4).takenBy, QStringLiteral("openMenuHotKey"));
    center.moveKey('b', 'b');
    emit center.keyboardChanged(KeyboardChange::positions);
    EXPECT_EQ(state(5 + 4).result, Result::bound);
}

} // namespace quorvel::testing
