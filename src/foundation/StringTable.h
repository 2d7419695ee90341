#pragma once

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

namespace quorvel {

/// The user-visible texts of one language by their keys; English stands in for what a language
/// lacks.
class StringTable {
public:
    /// The table for the first of the locale's preferred languages that is offered.
    static StringTable forLocale(const QLocale& locale);
    static StringTable forLanguage(const QString& code);
    static QStringList offeredLanguages();

    /// The text; the key itself when no table has it, so that a gap is seen and not empty.
    QString text(const QString& key) const;

    /// The text with "%1", "%2" … replaced.
    template <typename... Arguments>
    QString format(const QString& key, const Arguments&... arguments) const {
        return text(key).arg(arguments...);
    }

private:
    QHash<QString, QString> m_texts;
};

} // namespace quorvel
