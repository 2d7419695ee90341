#include "platform/text/dates/ClockReader.h"

namespace quorvel {

namespace {

int offsetAt(const DateLine& line, int index, int& end) {
    const bool isMinus = line.isMark(index, u'-') || line.isMark(index, u'–');
    if ((!isMinus && !line.isMark(index, u'+')) || !line.isGlued(index + 1))
        return Moment::noOffset;
    int hours = line.number(index + 1, 1, 2, 0, 14);
    int minutes = 0;
    end = index + 2;
    const int compact = line.number(index + 1, 4, 4, 0, 1459);
    if (compact >= 0) {
        hours = compact / 100;
        minutes = compact % 100;
    } else if (hours >= 0 && line.isMark(index + 2, u':') && minutesAt(line, index + 3) >= 0) {
        minutes = minutesAt(line, index + 3);
        end = index + 4;
    }
    const bool isNumber = hours < 0 || (line.isMark(end, u':') && line.isGlued(end + 1));
    if (isNumber)
        return Moment::noOffset;
    return (isMinus ? -1 : 1) * (hours * 60 + minutes);
}

/// "+02:00", " +0100"; a hyphen after hours and minutes alone is a range.
int readOffset(const DateLine& line, int index, Moment& moment) {
    int end = index;
    const int offset = offsetAt(line, index, end);
    const bool isLong = end == index + 4 || line.at(index + 1).digits == 4;
    const bool isMinus = !line.isMark(index, u'+');
    const bool isClear = line.isGlued(index)
                             ? !isMinus || moment.second >= 0 || line.at(index + 1).digits == 4
                             : isLong && !isMinus;
    const bool isSpacedMinus = !line.isGlued(index) && line.at(index + 1).digits == 4;
    if (offset == Moment::noOffset || (!isClear && !isSpacedMinus))
        return index;
    moment.offset = offset;
    return end;
}

} // namespace

int parseZone(const DateLine& line, int index, Moment& moment) {
    const int offsetEnd = readOffset(line, index, moment);
    if (offsetEnd != index) {
        const bool isNamed = line.isMark(offsetEnd, u'(') && line.has(offsetEnd + 1, Role::zone) &&
                             line.isUpper(offsetEnd + 1) && line.isMark(offsetEnd + 2, u')');
        return isNamed ? offsetEnd + 3 : offsetEnd;
    }
    const bool isInParens = line.isMark(index, u'(');
    const int at = isInParens ? index + 1 : index;
    const int zone = line.value(at, Role::zone);
    const bool isWritten =
        zone >= 0 && line.isUpper(at) && (line.written(at).size() > 1 || line.isGlued(at));
    if (!isWritten)
        return index;
    int end = at + 1;
    if (zone == 0 || line.written(at).size() == 1) {
        moment.offset = 0;
        int past = end;
        const int offset =
            zone == 0 && line.isGlued(end) ? offsetAt(line, end, past) : Moment::noOffset;
        if (offset != Moment::noOffset) {
            moment.offset = offset;
            end = past;
        }
    }
    if (!isInParens)
        return end;
    return line.isMark(end, u')') ? end + 1 : index;
}

} // namespace quorvel
