#pragma once

#include <QString>

namespace quorvel {

/// What a text's ambiguous parts are read by.
struct Region {
    /// ISO 3166 code of two capital letters: national telephone numbers are of this country.
    QString country = QStringLiteral("US");

    /// Whether 03/04/2024 is the third of April here.
    bool dayFirst = false;

    /// By the user's locale; the United States where it names no country.
    static Region ofUser();

    /// By country code; the order of dates is the country's usual one.
    static Region ofCountry(const QString& country);
};

} // namespace quorvel
