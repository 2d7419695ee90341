#include "CoreRig.h"

#include "foundation/Folding.h"
#include "menu/search/SearchTexts.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

class SearchTextsTest : public ::testing::Test, protected CoreRig {
protected:
    bool finds(const QString& query, const QString& text, const QUuid& clip) const {
        return texts.contains(clip, text, SearchTexts::foldedForm(query));
    }
    const QUuid id = QUuid::createUuid();
    SearchTexts texts{preferences};
};

TEST_F(SearchTextsTest, FindsWithoutCaseAndDiacriticsOnly) {
    const struct {
        const char* query;
        const char* text;
        bool found;
    } cases[]{
        {"cafe", "Café", true},
        {"CAFÉ", "cafe\u0301", true},
        {"strasse", "STRAẞE", true},
        {"", "anything", true},
        {"x", "", false},
        {"и", "Й", true},
        {"ab", "a b", false},
        {"東京", "東京都", true},
        {"a\nb", "A\nB", true},
        {"\u00e4", "\u00c4rger", true},
        {"👍", "ok 👍🏽", true},
    };
    for (const auto& [query, text, found] : cases)
        EXPECT_EQ(finds(QString::fromUtf8(query), QString::fromUtf8(text), QUuid::createUuid()),
                  found)
            << query << " in " << text;
}

TEST_F(SearchTextsTest, FollowsTheTextAndTheMasking) {
    EXPECT_TRUE(finds(QStringLiteral("old"), QStringLiteral("old"), id));
    EXPECT_FALSE(finds(QStringLiteral("old"), QStringLiteral("new"), id));
    const QString secret = QStringLiteral("password: hunter2secret");
    for (const bool isMasked : {true, false, true}) {
        preferences.set(keys::sensitiveDataMaskingEnabled, isMasked);
        EXPECT_EQ(finds(QStringLiteral("hunter2"), secret, id), !isMasked);
    }
}

TEST_F(SearchTextsTest, WhatIsBeyondTheBudgetIsStillFound) {
    const QString megabyte = QString(SearchTexts::mostUnits, u'x');
    for (qsizetype i = 0; i < SearchTexts::mostBytes / SearchTexts::mostUnits; ++i)
        texts.prepare(QUuid::createUuid(), megabyte);
    EXPECT_TRUE(finds(QStringLiteral("late"), QStringLiteral("latecomer"), id));
    EXPECT_FALSE(finds(QStringLiteral("end"), megabyte + QStringLiteral("end"), id))
        << "only the beginning of a long text is searched";
    EXPECT_FALSE(finds(QStringLiteral("later"), QStringLiteral("latecomer"), id));
    EXPECT_FALSE(finds(QStringLiteral("later on"), QStringLiteral("latecomer"), id));
    EXPECT_TRUE(finds(QStringLiteral("late"), QStringLiteral("latecomer"), id));
    const QString secret = QStringLiteral("password: hunter2secret");
    EXPECT_FALSE(finds(QStringLiteral("hunter2"), secret, QUuid::createUuid()));
    texts.retain({id});
    EXPECT_TRUE(finds(QStringLiteral("late"), QStringLiteral("latecomer"), id));
}

TEST(SearchedText, ItsPiecesAreWhatTheWholeTextIs) {
    const QString filler = QStringLiteral("Ab ").repeated(16 * 1024 / 3 - 1); // One piece, nearly.
    const QString odd = QStringLiteral("ÀẞЙ東京👍🏽\r\n\t");
    const QString broken = QString(QChar(0xD83D)) + QStringLiteral("x") + QChar(0xDC4D);
    QStringList whole{QString(), odd, broken, filler + broken};
    for (int shift = 0; shift < 8; ++shift)
        whole.append(filler + QString(shift, u'.') + odd + filler + odd);
    for (const QString& text : std::as_const(whole)) {
        const qsizetype middle = text.size() / 2;
        const SearchedText plain(text, text.size(), {});
        EXPECT_EQ(plain.form(), folded(text).toUtf8());
        EXPECT_EQ(plain.contains(SearchTexts::foldedForm(odd)), text.contains(odd));
        const SearchedText masked(text, text.size(),
                                  {{.start = middle, .length = text.size() / 4}});
        EXPECT_EQ(masked.form(), folded(text.left(middle) + secretMask.toString() +
                                        text.mid(middle + text.size() / 4))
                                     .toUtf8());
        EXPECT_EQ(SearchedText(text, middle, {}).form(), folded(text.left(middle)).toUtf8());
    }
}

} // namespace quorvel::testing
