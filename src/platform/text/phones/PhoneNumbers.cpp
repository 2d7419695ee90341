#include "platform/text/phones/PhoneNumbers.h"

#include <phonenumbers/phonenumberutil.h>

namespace quorvel {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

QList<int> groupsOf(const std::string& formatted) {
    QList<int> groups;
    bool isInside = false;
    for (const char c : formatted) {
        const bool isDigit = c >= '0' && c <= '9';
        if (isDigit && !isInside)
            groups.append(0);
        if (isDigit)
            ++groups.last();
        isInside = isDigit;
    }
    return groups;
}

QString digitsOf(const std::string& formatted) {
    QString digits;
    for (const char c : formatted)
        if (c >= '0' && c <= '9')
            digits += QLatin1Char(c);
    return digits;
}

QString internationalForm(const PhoneNumberUtil& plans, const PhoneNumber& number) {
    std::string formatted;
    plans.Format(number, PhoneNumberUtil::E164, &formatted);
    return QString::fromStdString(formatted);
}

/// Inside North America the country's own 1 may stand before the number.
constexpr int northAmerica = 1;

/// For numbers that name their country themselves.
constexpr const char* noCountry = "ZZ";

} // namespace

PhoneVerdict judgePhoneNumber(const QString& digits, const Region& region) {
    const PhoneNumberUtil& plans = *PhoneNumberUtil::GetInstance();
    PhoneNumber number;
    const auto error = plans.Parse(digits.toStdString(), region.country.toStdString(), &number);
    if (error != PhoneNumberUtil::NO_PARSING_ERROR || !plans.IsValidNumber(number))
        return {};
    const QString international = internationalForm(plans, number);
    if (digits.startsWith(u'+'))
        return {international, {}};
    std::string national;
    plans.Format(number, PhoneNumberUtil::NATIONAL, &national);
    QList<int> groups = groupsOf(national);
    const bool isWhole = digitsOf(national) == digits;
    const bool hasOwnPrefix =
        number.country_code() == northAmerica && digits == u'1' + digitsOf(national);
    if (hasOwnPrefix)
        groups.prepend(1);
    return isWhole || hasOwnPrefix ? PhoneVerdict{international, groups} : PhoneVerdict{};
}

PhoneParts partsOfPhoneNumber(const QString& international) {
    const PhoneNumberUtil& plans = *PhoneNumberUtil::GetInstance();
    PhoneNumber number;
    const auto error = plans.Parse(international.toStdString(), noCountry, &number);
    if (error != PhoneNumberUtil::NO_PARSING_ERROR)
        return {};
    std::string national;
    plans.Format(number, PhoneNumberUtil::NATIONAL, &national);
    return {u'+' + QString::number(number.country_code()), QString::fromStdString(national)};
}

} // namespace quorvel
