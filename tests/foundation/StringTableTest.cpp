#include "foundation/StringTable.h"
#include "smart/SmartFolderKind.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

QString contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

QJsonObject table(const QString& language) {
    return QJsonDocument::fromJson(
               contentOf(QStringLiteral(":/quorvel/strings/%1.json").arg(language)).toUtf8())
        .object();
}

/// Every string literal in the sources.
QSet<QString> literals() {
    static const QRegularExpression literal(QStringLiteral("\"([A-Za-z.]+)\""));
    QSet<QString> found;
    QDirIterator files(QStringLiteral(QUORVEL_SOURCES),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        auto matches = literal.globalMatch(contentOf(files.next()));
        while (matches.hasNext())
            found.insert(matches.next().captured(1));
    }
    return found;
}

} // namespace

TEST(StringTable, EveryKeyIsUsedAndEveryUsedKeyExists) {
    QSet<QString> used = literals();
    for (const SmartFolderKind folder : allSmartFolders())
        used.insert(titleKey(folder));
    const QJsonObject english = table(QStringLiteral("en"));
    for (const QString& key : english.keys())
        EXPECT_TRUE(used.contains(key)) << "nothing uses " << qPrintable(key);
    static const QRegularExpression keyShape(
        QStringLiteral("^(menu|action|app|achievements|error|hint|hotKey|paste|tray|key|"
                       "recorder)\\.[A-Za-z.]+$"));
    for (const QString& literal : used)
        if (keyShape.match(literal).hasMatch()) {
            EXPECT_TRUE(english.contains(literal)) << "no text for " << qPrintable(literal);
        }
}

TEST(StringTable, EveryLanguageHasEveryTextWithTheSamePlaceholders) {
    static const QRegularExpression placeholder(QStringLiteral("%\\d"));
    const QJsonObject english = table(QStringLiteral("en"));
    for (const QString& language : StringTable::offeredLanguages()) {
        const QJsonObject texts = table(language);
        EXPECT_EQ(texts.keys(), english.keys()) << qPrintable(language);
        for (const QString& key : english.keys())
            EXPECT_EQ(texts.value(key).toString().count(placeholder),
                      english.value(key).toString().count(placeholder))
                << qPrintable(language) << ' ' << qPrintable(key);
    }
}

TEST(StringTable, TheLocaleChoosesTheLanguage) {
    const auto quit = [](const char* locale) {
        return StringTable::forLocale(QLocale(QString::fromLatin1(locale)))
            .text(QStringLiteral("action.quit"));
    };
    EXPECT_EQ(quit("de_AT"),
              StringTable::forLanguage(QStringLiteral("de")).text(QStringLiteral("action.quit")));
    EXPECT_NE(quit("de_AT"), quit("en_GB"));
    EXPECT_EQ(quit("fi_FI"), quit("en_GB"));
}

} // namespace quorvel
