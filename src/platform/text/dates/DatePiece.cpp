#include "platform/text/dates/DatePiece.h"

namespace quorvel {

namespace {

QString padded(int number, int digits) {
    return QString::number(number).rightJustified(digits, u'0');
}

QString isoDate(const Moment& moment) {
    QString text = padded(moment.year, 4);
    if (moment.week != Moment::unknown) {
        text += QStringLiteral("-W") + padded(moment.week, 2);
        return moment.day == Moment::unknown ? text : text + u'-' + QString::number(moment.day);
    }
    text += u'-' + padded(moment.month, 2);
    return moment.day == Moment::unknown ? text : text + u'-' + padded(moment.day, 2);
}

QString isoOffset(int minutes) {
    if (minutes == Moment::noOffset)
        return {};
    if (minutes == 0)
        return QStringLiteral("Z");
    const int size = std::abs(minutes);
    return (minutes < 0 ? u'-' : u'+') + padded(size / 60, 2) + u':' + padded(size % 60, 2);
}

QString isoTime(const Moment& moment) {
    QString text = u'T' + padded(moment.hour, 2) + u':' + padded(std::max(moment.minute, 0), 2);
    if (moment.second != Moment::unknown)
        text += u':' + padded(moment.second, 2);
    if (moment.millisecond != Moment::unknown)
        text += u'.' + padded(moment.millisecond, 3);
    return text + isoOffset(moment.offset);
}

} // namespace

void Moment::takeDate(const Moment& from) {
    year = from.year;
    month = from.month;
    day = from.day;
    week = from.week;
}

void Moment::takeTime(const Moment& from) {
    hour = from.hour;
    minute = from.minute;
    second = from.second;
    millisecond = from.millisecond;
    offset = from.offset;
}

QString Moment::toIso() const {
    if (!hasDate())
        return hasTime() ? isoTime(*this) : QString();
    const bool isWholeDay = day != unknown;
    return hasTime() && isWholeDay ? isoDate(*this) + isoTime(*this) : isoDate(*this);
}

int fullYear(int twoDigits) {
    constexpr int firstOfLastCentury = 69;
    return twoDigits + (twoDigits < firstOfLastCentury ? 2000 : 1900);
}

bool isDay(int year, int month, int day) {
    constexpr int days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || day < 1 || day > days[month - 1])
        return false;
    const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month != 2 || day < 29 || year < 0 || isLeap;
}

} // namespace quorvel
