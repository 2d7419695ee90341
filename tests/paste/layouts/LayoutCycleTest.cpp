#include "CoreRig.h"
#include "FakeKeyboardLayouts.h"

#include "paste/layouts/LayoutCycle.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

namespace {

QList<KeyboardLayoutMap> usRussianGreek() {
    return {FakeKeyboardLayouts::layout(QStringLiteral("us"),
                                        QStringLiteral("qwertyuiopasdfghjklzxcvbnm0")),
            FakeKeyboardLayouts::layout(QStringLiteral("ru"),
                                        QStringLiteral("йцукенгшщзфывапролдячсмить0")),
            FakeKeyboardLayouts::layout(QStringLiteral("gr"),
                                        QStringLiteral(";ςερτυθιοπασδφγηξκλζχψωβνμ0"))};
}

} // namespace

class LayoutCycleTest : public ::testing::Test, protected CoreRig {
protected:
    QString next(const QString& text) {
        const auto variant = cycle.next(text);
        return variant ? variant->targetLayoutID + u' ' + variant->value : QStringLiteral("none");
    }
    QString lastTarget() const { return preferences.text(keys::cycleKeyboardLayoutLastTargetID); }
    QStringList variantsOf(const QString& text) const {
        QStringList list;
        for (const auto& variant : variants.variants(text))
            list.append(variant.targetLayoutID + u' ' + variant.value);
        return list;
    }

    FakeKeyboardLayouts layouts{usRussianGreek()};
    KeyboardLayoutVariants variants{layouts};
    LayoutCycle cycle{variants, preferences};
    const QString hello = QStringLiteral("ghbdtn");
};

TEST_F(LayoutCycleTest, VariantsComeLikeliestFirst) {
    EXPECT_EQ(variantsOf(hello),
              (QStringList{QStringLiteral("ru привет"), QStringLiteral("gr γηβδτν")}));
    EXPECT_EQ(variantsOf(QStringLiteral("сфддьу")).first(), QStringLiteral("us callme"));
    layouts.configure({usRussianGreek().at(0), usRussianGreek().at(2), usRussianGreek().at(1)});
    EXPECT_EQ(variantsOf(hello).first(), QStringLiteral("ru привет"));
    EXPECT_EQ(variants.reading(hello).sourceLayoutID, QStringLiteral("us"));
}

TEST_F(LayoutCycleTest, ThereMayBeNothingToConvert) {
    const QStringList nothing;
    EXPECT_EQ(variantsOf(QStringLiteral(" \n\t ")), nothing);
    EXPECT_EQ(variantsOf(QStringLiteral("0 00")), nothing) << "all layouts share these keys";
    EXPECT_EQ(variantsOf(QStringLiteral("漢字")), nothing);
    EXPECT_EQ(variantsOf(hello.repeated(20'000)), nothing);
    layouts.configure({usRussianGreek().first()});
    EXPECT_EQ(variantsOf(hello), nothing);
    EXPECT_EQ(next(hello), QStringLiteral("none"));
    EXPECT_EQ(lastTarget(), QString());
}

TEST_F(LayoutCycleTest, VariantsAreKeptWithinBoundsAndUntilAChange) {
    variants.reading(hello);
    const int reads = layouts.mapReads;
    variants.reading(hello);
    const int readsPerHit = layouts.mapReads - reads;
    for (int i = 0; i < KeyboardLayoutVariants::cachedTexts; ++i)
        variants.reading(QStringLiteral("q").repeated(i + 1));
    const int before = layouts.mapReads;
    variants.reading(hello);
    EXPECT_GT(layouts.mapReads - before, readsPerHit) << "the oldest one was let go";
    layouts.configure(usRussianGreek().mid(0, 2));
    EXPECT_EQ(variantsOf(hello), QStringList{QStringLiteral("ru привет")});
}

TEST_F(LayoutCycleTest, PressesGoThroughAllTargetsAndComeBack) {
    const QStringList turn{QStringLiteral("ru привет"), QStringLiteral("gr γηβδτν"),
                           QStringLiteral("us ghbdtn")};
    for (int round = 0; round < 2; ++round)
        for (const QString& expected : turn) {
            EXPECT_EQ(next(hello), expected);
            EXPECT_EQ(lastTarget(), expected.left(2));
        }
    // The same when each press is given what the one before has pasted.
    QString text = hello;
    for (const QString& expected : turn + turn) {
        EXPECT_EQ(next(text), expected);
        text = expected.mid(3);
    }
}

TEST_F(LayoutCycleTest, ANewTextStartsWithWhatIsLikely) {
    EXPECT_EQ(next(hello), QStringLiteral("ru привет"));
    EXPECT_EQ(next(QStringLiteral("cgfcb,j")), QStringLiteral("ru спаси,о"));
    EXPECT_EQ(next(QStringLiteral("zebra")), QStringLiteral("gr ζεβρα"))
        << "moves on where nothing is likely";
}

TEST_F(LayoutCycleTest, OnlyTheLastTargetDecidesWhereNothingIsLikely) {
    const KeyboardLayoutReading reading{QStringLiteral("s"),
                                        {},
                                        {{QStringLiteral("a"), {}, QStringLiteral("A")},
                                         {QStringLiteral("b"), {}, QStringLiteral("B")}}};
    const struct {
        const char* last;
        CycleStep step;
        const char* target;
    } cases[]{
        {"", CycleStep::start, "a"},  {"a", CycleStep::start, "b"}, {"b", CycleStep::start, "a"},
        {"s", CycleStep::start, "a"}, {"?", CycleStep::start, "a"}, {"a", CycleStep::goOn, "b"},
        {"b", CycleStep::goOn, "s"},  {"s", CycleStep::goOn, "a"},  {"?", CycleStep::goOn, "a"},
    };
    for (const auto& [last, step, target] : cases)
        EXPECT_EQ(nextVariant(reading, {}, QString::fromLatin1(last), step)->targetLayoutID,
                  QString::fromLatin1(target))
            << last;
}

} // namespace quorvel::testing
