#include "platform/text/Tokens.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

QString shape(const QString& text) {
    const Tokens tokens(text);
    QStringList parts;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens.at(i);
        const QString space = token.afterLine ? QStringLiteral("/") : QStringLiteral("_");
        parts.append((token.afterSpace ? space : QString()) + tokens.folded(i).toString());
    }
    return parts.join(u'|');
}

TEST(Tokens, CutsWordsNumbersAndMarks) {
    const QList<std::pair<QString, QString>> cases{
        {QStringLiteral("NW1 6XE"), QStringLiteral("/nw|1|_6|xe")},
        {QStringLiteral("O'Brien's 'quoted'"), QStringLiteral("/o'brien's|_'|quoted|'")},
        {QStringLiteral("12.5\n5th"), QStringLiteral("/12|.|5|/5|th")},
        {QStringLiteral("Ça Straße Й"), QStringLiteral("/ca|_strasse|_и")},
        {QStringLiteral("2024年3月"), QStringLiteral("/2024|年|3|月")},
        {QStringLiteral("e\u0301a"), QStringLiteral("/ea")},
        {QString(), QString()},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(shape(text), expected) << text.toStdString();
}

} // namespace
} // namespace quorvel
