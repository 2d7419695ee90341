#include "platform/text/Region.h"

#include <QLocale>

namespace quorvel {

namespace {

bool writesDayFirst(const QLocale& locale) {
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    return format.indexOf(u'd', 0, Qt::CaseInsensitive) <
           format.indexOf(u'M', 0, Qt::CaseInsensitive);
}

} // namespace

Region Region::ofUser() {
    const QLocale locale = QLocale::system();
    const QLocale::Territory territory = locale.territory();
    if (locale.language() == QLocale::C || territory == QLocale::AnyTerritory)
        return {};
    return {QLocale::territoryToCode(territory), writesDayFirst(locale)};
}

Region Region::ofCountry(const QString& country) {
    const QLocale::Territory territory = QLocale::codeToTerritory(country);
    if (territory == QLocale::AnyTerritory)
        return {};
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, territory);
    return {country.toUpper(), !locales.isEmpty() && writesDayFirst(locales.constFirst())};
}

} // namespace quorvel
