#include "CoreRig.h"
#include "FakeHotKeyCenter.h"

#include "paste/GlobalHotKeys.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace quorvel::testing {

class GlobalHotKeysTest : public ::testing::Test, protected CoreRig {
protected:
    static constexpr Modifiers superShift = Modifier::command | Modifier::shift;

    void store(const QString& key, quint32 modifiers) {
        preferences.set(keys::openMenuHotKey, SnippetShortcut{key, modifiers});
    }

    FakeHotKeyCenter center;
    GlobalHotKeys hotKeys{center, preferences, CoreRig::store};
    QSignalSpy pressed{&hotKeys, &GlobalHotKeys::pressed};
};

TEST_F(GlobalHotKeysTest, TheMenuKeyWorksWithItsDefaultAndFollowsThePreference) {
    hotKeys.registerAll();
    EXPECT_TRUE(center.press('v', superShift));
    store(QStringLiteral("K"), 0x40000);
    EXPECT_FALSE(center.press('v', superShift));
    EXPECT_TRUE(center.press('k', Modifier::control));
    EXPECT_EQ(pressed.size(), 2);
    EXPECT_EQ(center.registrationCount(), 1);
}

TEST_F(GlobalHotKeysTest, ATakenOrMissingKeyIsAStateAndNoCrash) {
    center.take('v', superShift);
    hotKeys.registerAll();
    ASSERT_EQ(hotKeys.states().size(), 1);
    EXPECT_EQ(hotKeys.states().first().result, HotKeyState::Result::taken);
    EXPECT_EQ(hotKeys.states().first().status, 10);
    center.removeKey(u'q');
    store(QStringLiteral("q"), 0x40000);
    EXPECT_EQ(hotKeys.states().first().result, HotKeyState::Result::noSuchKey);
}

TEST_F(GlobalHotKeysTest, RegisteredAnewWhenTheKeyboardChangesButNotAfterTheEnd) {
    hotKeys.registerAll();
    emit center.keyboardChanged();
    EXPECT_EQ(center.registrationCount(), 1);
    hotKeys.unregisterAll();
    emit center.keyboardChanged();
    store(QStringLiteral("k"), 0x40000);
    EXPECT_EQ(center.registrationCount(), 0);
}

} // namespace quorvel::testing
