#include "foundation/StringTable.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace quorvel {

namespace {

QJsonObject readTable(const QString& language) {
    QFile file(QStringLiteral(":/quorvel/strings/%1.json").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace

QStringList StringTable::offeredLanguages() {
    return {QStringLiteral("en"), QStringLiteral("es"), QStringLiteral("de"),
            QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("ru")};
}

StringTable StringTable::forLocale(const QLocale& locale) {
    const QStringList offered = offeredLanguages();
    for (const QString& preferred : locale.uiLanguages()) {
        const QString code = preferred.section(QLatin1Char('-'), 0, 0);
        if (offered.contains(code))
            return forLanguage(code);
    }
    return forLanguage(offered.first());
}

StringTable StringTable::forLanguage(const QString& code) {
    StringTable table;
    for (const QString& language : {QStringLiteral("en"), code}) {
        const QJsonObject texts = readTable(language);
        for (auto text = texts.begin(); text != texts.end(); ++text)
            table.m_texts.insert(text.key(), text.value().toString());
    }
    return table;
}

QString StringTable::text(const QString& key) const {
    return m_texts.value(key, key);
}

} // namespace quorvel
