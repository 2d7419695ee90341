#include "smart/masking/RandomStrings.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/PublicForms.h"
#include "smart/masking/RunShape.h"
#include "smart/masking/TokenForms.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype leastRandom = 24;
constexpr qsizetype mostRandom = 256;

bool isDelimited(QStringView text, qsizetype start, qsizetype end) {
    const QChar before = unitAt(text, start - 1);
    const QChar after = unitAt(text, end);
    const bool opens = before.isNull() || hasBit(before, blankBit) ||
                       QStringView(u"\"'`:=,([{>|").contains(before);
    const bool closes =
        after.isNull() || hasBit(after, blankBit) || QStringView(u"\"'`,;)]}<|:").contains(after);
    return opens && closes;
}

/// Lines of one length that follow each other are an encoded file.
bool isLineOfFile(QStringView text, qsizetype start, qsizetype end) {
    constexpr qsizetype leastLine = 40;
    const bool fillsLine = (start == 0 || hasBit(unitAt(text, start - 1), blankBit)) &&
                           hasBit(unitAt(text, end), lineEndBit);
    if (end - start < leastLine)
        return false;
    const qsizetype next = endOfBits(text.left(end + 8), end, blankBit);
    const bool goesOn =
        fillsLine && endOfBits(text.left(next + leastLine), next, dataBit) - next >= 8;
    const qsizetype before = start - 2;
    const bool wentOn = start > leastLine && hasBit(text[start - 1], lineEndBit) &&
                        hasBit(text[before], dataBit) &&
                        std::ranges::all_of(text.mid(before - 30, 30), [](QChar unit) {
                            return unit.unicode() < 0x80 && hasBit(unit, dataBit);
                        });
    return goesOn || wentOn;
}

int marksIn(QStringView run) {
    return int(std::ranges::count_if(run, [](QChar unit) {
        return unit == u'-' || unit == u'_' || unit == u'+' || unit == u'/' || unit == u'~';
    }));
}

bool isMixedRandom(const RunShape& shape, int marks) {
    constexpr int leastRandomness = -6;
    constexpr int leastWithoutDigits = 12;
    constexpr int leastWithOneDigit = 6;
    const bool isBase64 = marks <= 3 + shape.size / 6;
    const int least = shape.digits > 1    ? leastRandomness
                      : shape.digits == 1 ? leastWithOneDigit
                                          : leastWithoutDigits;
    const bool isRandom = shape.randomness() >= least;
    return shape.lower >= 2 && shape.upperRuns >= 3 && shape.others == 0 && isRandom &&
           shape.distinct >= 12 && isBase64;
}

/// Keys of lower-case letters and digits look like many ids; only alone are they taken for keys.
bool isLowRandom(QStringView text, const RunShape& shape) {
    const bool isAlone = text.trimmed().size() == shape.size;
    return isAlone && shape.upper == 0 && shape.symbols == 0 && shape.others == 0 && !shape.isHex &&
           shape.digits >= 4 && shape.lower >= 8 && shape.changeRate() >= 25 && shape.size != 25 &&
           shape.longestLower <= 7;
}

/// The last piece behind "=" signs that are no padding.
qsizetype afterAssignment(QStringView text, qsizetype start, qsizetype end) {
    qsizetype padding = end;
    while (padding > start && text[padding - 1] == u'=')
        --padding;
    const qsizetype equals = text.mid(start, padding - start).lastIndexOf(u'=');
    return equals < 0 ? start : start + equals + 1;
}

/// "MTk4NjIyNDgzNDcxOTI1MjQ4.Cl2FMQ.ZnCjm1XVW7vRze4b7Cq4se7kKWs".
bool isThreePartToken(QStringView run) {
    const qsizetype first = run.indexOf(u'.');
    const qsizetype second = first < 0 ? -1 : run.indexOf(u'.', first + 1);
    if (second < 0 || run.indexOf(u'.', second + 1) >= 0)
        return false;
    const QChar beginning = run.front();
    const RunShape shape = shapeOf(run);
    return first >= 23 && first <= 28 && second - first == 7 && run.size() - second >= 27 &&
           (beginning == u'M' || beginning == u'N' || beginning == u'O') && shape.digits > 3 &&
           shape.upper > 8 && shape.changeRate() >= 30;
}

/// Published forms whose mark is not at their beginning.
bool isMarkedInside(QStringView run) {
    constexpr qsizetype hashSize = 32;
    const bool isDataCentre = run.size() > hashSize + 3 && run.size() <= hashSize + 5 &&
                              run.mid(hashSize, 3) == u"-us" && shapeOf(run.left(hashSize)).isHex;
    const bool isCloud = run.indexOf(u".atlasv1.") == 14 && run.size() > 60;
    const bool isDirectory = run.size() >= 37 && run.size() <= 42 && run.mid(3, 4).contains(u"Q~");
    return isDataCentre || isCloud || isDirectory || isThreePartToken(run);
}

} // namespace

std::optional<SecretRange> randomStringIn(QStringView text, qsizetype start, qsizetype end) {
    start = afterAssignment(text, start, end);
    while (end > start && (text[end - 1] == u'.' || text[end - 1] == u'-'))
        --end;
    const QStringView run = text.mid(start, end - start);
    if (run.size() < leastRandom || run.size() > mostRandom || !isDelimited(text, start, end))
        return {};
    if (isMarkedInside(run))
        return hiddenPart(start, end, 0);
    if (run.contains(u'.'))
        return {};
    const qsizetype padding = run.endsWith(u"==") ? 2 : run.endsWith(u'=') ? 1 : 0;
    const RunShape shape = shapeOf(run.chopped(padding));
    if (!isMixedRandom(shape, marksIn(run)) && !isLowRandom(text, shape))
        return {};
    if (isPublicForm(run) || isNamedPublic(text, start, end) || isLineOfFile(text, start, end))
        return {};
    return hiddenPart(start, end, 0);
}

} // namespace quorvel
