#include "MenuRig.h"

#include "menu/MenuHints.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

class MenuHintsTest : public ::testing::Test, protected MenuRig {
protected:
    /// What the next openings teach: "keep" for option mode, "random" for the list.
    QString openings(int count) {
        QStringList kinds;
        for (int i = 0; i < count; ++i)
            kinds.append(hints.choose() == optionHint ? QStringLiteral("keep")
                                                      : QStringLiteral("random"));
        return kinds.join(u' ');
    }

    const QString optionHint = strings.text(QStringLiteral("hint.modifier.keepClipboard"));
    int next = 0;
    QList<int> bounds;
    MenuHints hints{preferences, strings, [this](int below) {
                        bounds.append(below);
                        return next++ % below;
                    }};
};

TEST_F(MenuHintsTest, EverySecondOpeningTellsOfOptionModeUntilItIsKnown) {
    preferences.set(keys::altModeUsageCount, 49);
    EXPECT_EQ(openings(5), QStringLiteral("random keep random keep random"));
    hints.countOptionModeUse();
    EXPECT_EQ(openings(4), QStringLiteral("random random random random"));
    EXPECT_EQ(preferences.record(keys::altModeUsageCount).toInt(), 50);
    EXPECT_EQ(preferences.record(keys::altHintMenuOpenCount).toInt(), 9);
}

TEST_F(MenuHintsTest, TheListHasEightHintsAndNamesTheKeys) {
    preferences.set(keys::altModeUsageCount, 50);
    QStringList texts;
    for (int i = 0; i < 8; ++i)
        texts.append(hints.choose());
    EXPECT_EQ(QSet<QString>(texts.begin(), texts.end()).size(), 8);
    EXPECT_EQ(bounds, QList<int>(8, 8));
    EXPECT_EQ(texts.first(), QStringLiteral("Super+Shift+V opens your clips wherever you are."));
    EXPECT_FALSE(texts.join(u' ').contains(u'%'));
}

TEST_F(MenuHintsTest, SwitchedOffNothingIsShownOrCounted) {
    hints.switchOff();
    EXPECT_EQ(hints.choose(), QString());
    EXPECT_EQ(preferences.record(keys::altHintMenuOpenCount).toInt(), 0);
}

} // namespace quorvel::testing
