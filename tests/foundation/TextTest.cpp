#include "foundation/Text.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {
const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
}

TEST(Text, ShortensByCharactersAndKeepsTheEnd) {
    struct Case {
        QString text;
        int limit;
        int tail;
        QString expected;
    };
    const QString fortyOne = QStringLiteral("abcdefghijklmnopqrstuvwxyzabcABCDEFGHIJKL");
    const Case cases[] = {
        {fortyOne, 40, 10, QStringLiteral("abcdefghijklmnopqrstuvwxyzabc\u2026CDEFGHIJKL")},
        {fortyOne.left(40), 40, 10, fortyOne.left(40)},
        {QStringLiteral("abc"), 1, 10, QStringLiteral("\u2026")},
        {QStringLiteral("abcd"), 3, 10, QStringLiteral("a\u2026d")},
        {QStringLiteral("abcd"), 2, 10, QStringLiteral("\u2026d")},
        {{}, 40, 10, {}},
        {family.repeated(5), 4, 1, family.repeated(2) + QStringLiteral("\u2026") + family},
        {family.repeated(40), 40, 10, family.repeated(40)},
        {QStringLiteral("abcde\u0301f"), 5, 1, QStringLiteral("abc\u2026f")},
        {QStringLiteral("abcde\u0301"), 5, 1, QStringLiteral("abcde\u0301")},
        {QStringLiteral("ae\u0301bcde\u0301"), 4, 1, QStringLiteral("ae\u0301\u2026e\u0301")},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shortened(c.text, c.limit, c.tail), c.expected) << qPrintable(c.text);
}

TEST(Text, ShorteningBoundsHostileTexts) {
    const QString marks = QStringLiteral("e") + QString(1'000'000, QChar(0x301));
    EXPECT_LT(shortened(marks, 40, 10).size(), 10'000);
    EXPECT_LT(shortened(family.repeated(1'000'000), 40, 10).size(), 1000);
}

TEST(Text, OneLineForDisplay) {
    EXPECT_EQ(singleLine(QStringLiteral("  a\nb\t\u2028c\x01 \r\n")), QStringLiteral("a b  c"));
    EXPECT_EQ(singleLine(QStringLiteral("\u202Eevil\u202C \u2066x")), QStringLiteral("evil x"));
    const QString longText = QString(5000, QLatin1Char('a')) + QStringLiteral("end");
    EXPECT_EQ(singleLine(u'a' + QString(300, QChar(0x301)) + u'b'),
              u'a' + QString(4, QChar(0x301)) + u'b');
    EXPECT_TRUE(singleLine(longText).endsWith(QStringLiteral("end")));
    EXPECT_LE(singleLine(longText).size(), 641);
}

TEST(Text, CountsUserPerceivedCharacters) {
    EXPECT_EQ(characterCount(QStringLiteral("e\u0301") + family + QStringLiteral("\r\n")), 3);
}

} // namespace quorvel
