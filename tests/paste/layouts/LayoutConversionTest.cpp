#include "FakeKeyboardLayouts.h"
#include "QtPrinting.h"

#include "paste/layouts/LayoutConversion.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

namespace {

/// Keys at the same places; the last key of each is dead but in the first layout.
struct Layouts {
    KeyboardLayoutMap latin = FakeKeyboardLayouts::layout(
        QStringLiteral("us"), QStringLiteral("abce1;"), QStringLiteral("ABCE!:"));
    KeyboardLayoutMap greek = FakeKeyboardLayouts::layout(
        QStringLiteral("gr"), QStringLiteral("αβψε1"), QStringLiteral("ΑΒΨΕ!"));
    KeyboardLayoutMap indic =
        FakeKeyboardLayouts::layout(QStringLiteral("in"), QStringLiteral("कि"), {});

    Layouts() {
        greek.recordDeadKey({5, 0}, QStringLiteral("\u0301"), QStringLiteral("\u00B4"));
        greek.recordDeadKey({5, shiftKeyState}, QStringLiteral("\u0308"), QStringLiteral("\u00A8"));
    }
};

} // namespace

TEST(LayoutConversion, EveryCharacterGoesByItsKey) {
    const Layouts all;
    const struct {
        const KeyboardLayoutMap& source;
        const KeyboardLayoutMap& target;
        QString text;
        QString converted;
    } cases[]{
        {all.latin, all.greek, QStringLiteral("Cab 1!"), QStringLiteral("Ψαβ 1!")},
        {all.greek, all.latin, QStringLiteral("Ψαβ"), QStringLiteral("Cab")},
        {all.latin, all.greek, QStringLiteral("xé😀\n€b"), QStringLiteral("xé😀\n€β")},
        {all.latin, all.greek, QStringLiteral(";e;a"), QStringLiteral("έά")},
        {all.latin, all.greek, QStringLiteral("c; b;"), QStringLiteral("ψ´ β´")},
        {all.latin, all.greek, QStringLiteral(";:b:"), QStringLiteral("´¨β¨")},
        {all.greek, all.latin, QStringLiteral("έΆ"), QStringLiteral(";e;A")},
        {all.greek, all.latin, QStringLiteral("ε\u0301"), QStringLiteral(";e")},
        {all.latin, all.indic, QStringLiteral("ab1"), QStringLiteral("कि1")},
        {all.indic, all.latin, QStringLiteral("कि"), QStringLiteral("ab")},
        {all.indic, all.latin, QStringLiteral("की"), QStringLiteral("की")},
        {all.latin, all.greek, QString(QChar(0xD83D)), QString(QChar(0xD83D))},
        {all.latin, all.greek, QString(), QString()},
    };
    for (const auto& [source, target, text, converted] : cases)
        EXPECT_EQ(retyped(typed(text, source), target), converted) << text.toStdString();
}

TEST(LayoutConversion, TheFirstKeyCountsAndADeadKeyLast) {
    KeyboardLayoutMap map = FakeKeyboardLayouts::layout(QStringLiteral("x"), QStringLiteral("^aa"));
    map.recordDeadKey({9, 0}, QStringLiteral("\u0302"), QStringLiteral("^"));
    EXPECT_EQ(map.charToStroke.value(QStringLiteral("a")), (KeyboardLayoutStroke{1, 0}));
    EXPECT_EQ(map.charToStroke.value(QStringLiteral("^")), (KeyboardLayoutStroke{0, 0}));
    EXPECT_EQ(map.strokeToChar.value({2, 0}), QStringLiteral("a"));
    EXPECT_EQ(map.strokeToChar.value({9, 0}), QStringLiteral("^"));
}

} // namespace quorvel::testing
