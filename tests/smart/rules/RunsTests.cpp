#include "smart/rules/Runs.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvel {
namespace {

qsizetype endLookedUpOneByOne(QStringView text, qsizetype from) {
    while (from < text.size() && LettersAndDigits::contains(text.utf16()[from]))
        ++from;
    return from;
}

QString randomText(std::mt19937& random) {
    const QString insides = QStringLiteral("a0Z9٣");
    const QString outsides = QStringLiteral(" -.é`{/:@[\u2028");
    const unsigned rarity = 1 + random() % 80;
    QString text;
    for (unsigned size = random() % 150; size > 0; --size) {
        const QString& pool = random() % rarity == 0 ? outsides : insides;
        text += pool[qsizetype(random() % unsigned(pool.size()))];
    }
    return text;
}

TEST(Runs, EndWhereACharacterByCharacterLookEndsThem) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const QString text = randomText(random);
        for (qsizetype from = 0; from <= text.size(); from += 7)
            EXPECT_EQ(endOfRun<LettersAndDigits>(text, from), endLookedUpOneByOne(text, from))
                << text.toStdString() << " from " << from;
    }
}

TEST(Runs, AreAllFoundThatAreLongEnough) {
    using Runs = std::vector<std::pair<qsizetype, qsizetype>>;
    constexpr qsizetype fewest = 14;
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        const QString text = randomText(random);
        Runs expected;
        for (qsizetype start = 0; start < text.size();) {
            const qsizetype end = endLookedUpOneByOne(text, start);
            if (end - start >= fewest)
                expected.emplace_back(start, end);
            start = end + 1;
        }
        Runs found;
        anyRun<LettersAndDigits>(text, fewest, [&](qsizetype start, qsizetype end) {
            found.emplace_back(start, end);
            return false;
        });
        EXPECT_EQ(found, expected) << text.toStdString();
    }
}

} // namespace
} // namespace quorvel
