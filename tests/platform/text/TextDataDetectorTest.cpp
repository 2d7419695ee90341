#include "platform/text/TextDataDetector.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(TextDataDetector, GivesValuesThatCanBeUsed) {
    const TextDataDetector detector({QStringLiteral("DE"), true});
    const auto matches =
        detector.matches(QStringLiteral("example.org/a?b, jane@example.org, 030 901820, 5.3.2024"));
    QStringList values;
    for (const DataMatch& match : matches)
        values.append(match.value);
    EXPECT_EQ(values, QStringList({QStringLiteral("http://example.org/a?b"),
                                   QStringLiteral("mailto:jane@example.org"),
                                   QStringLiteral("+4930901820"), QStringLiteral("2024-03-05")}));
}

/// Texts made to be slow or to break something; the test ends when all are answered.
TEST(TextDataDetector, SurvivesHostileTexts) {
    const TextDataDetector detector(Region{});
    constexpr qsizetype size = TextDataDetector::mostUnits;
    const QStringList pieces{
        QStringLiteral("("),    QStringLiteral("[{("),          QStringLiteral("1"),
        QStringLiteral("1 "),   QStringLiteral("a.b@"),         QStringLiteral("a."),
        QStringLiteral("://"),  QStringLiteral("http://a.b/("), QStringLiteral("+1 "),
        QStringLiteral("Mon "), QStringLiteral("1 Main St "),   QString(QChar(0xD800)),
        QString(QChar(0)),      QString(QChar(0x202E)),         QStringLiteral("e\u0301\u0301"),
        QStringLiteral("12/"),  QStringLiteral("next "),        QStringLiteral("東京都1-"),
        QStringLiteral("5 A "), QStringLiteral("5\n\n\n"),      QStringLiteral("5 Rue de "),
    };
    for (const QString& piece : pieces) {
        const QString text = piece.repeated(size / piece.size());
        qsizetype end = 0;
        for (const DataMatch& match : detector.matches(text)) {
            ASSERT_GE(match.start, end);
            ASSERT_GT(match.length, 0);
            end = match.end();
        }
        ASSERT_LE(end, text.size());
    }
}

} // namespace
} // namespace quorvel
