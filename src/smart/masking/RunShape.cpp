#include "smart/masking/RunShape.h"

#include "smart/masking/CharacterBits.h"

#include <bit>

namespace quorvel {

namespace {

constexpr qsizetype mostLooked = 320;

/// The 150 most frequent pairs of letters in English prose and in names of programs, three of four
/// pairs there: per first letter a bit for each second letter.
constexpr quint32 frequentSeconds[26] = {
    0x00EB94E, 0x0000911, 0x00A4D91, 0x0004111, 0x0AEB87D, 0x0004120, 0x0020010,
    0x0004111, 0x02E787F, 0x0000000, 0x0000010, 0x11C4911, 0x000C111, 0x00C415D,
    0x05EF80C, 0x00A4811, 0x0000000, 0x10E5115, 0x01CC995, 0x10E4191, 0x00EB800,
    0x0000111, 0x0000000, 0x0000000, 0x0000000, 0x0000000,
};

void countPair(RunShape& shape, QChar first, QChar second) {
    if (!isAsciiLetter(first) || !isAsciiLetter(second))
        return;
    const unsigned row = (first.unicode() | 0x20U) - u'a';
    const unsigned column = (second.unicode() | 0x20U) - u'a';
    ++shape.pairs;
    shape.frequentPairs += int(frequentSeconds[row] >> column & 1U);
}

bool isHexDigit(QChar unit) {
    const char16_t lowered = unit.unicode() | 0x20;
    return hasBit(unit, digitBit) || (lowered >= u'a' && lowered <= u'f');
}

int* counterFor(RunShape& shape, quint8 kind) {
    switch (kind) {
    case lowerBit:
        return &shape.lower;
    case upperBit:
        return &shape.upper;
    case digitBit:
        return &shape.digits;
    case symbolBit:
        return &shape.symbols;
    default:
        return &shape.others;
    }
}

} // namespace

RunShape shapeOf(QStringView run) {
    RunShape shape;
    run = run.left(mostLooked);
    shape.size = int(run.size());
    quint64 seen[2] = {0, 0};
    int lowerRun = 0;
    quint8 before = 0;
    QChar last;
    for (const QChar unit : run) {
        const quint8 kind = bitsOf(unit) & (lowerBit | upperBit | digitBit | symbolBit);
        ++*counterFor(shape, kind);
        if (kind != symbolBit) {
            shape.changes += before != 0 && kind != before ? 1 : 0;
            shape.upperRuns += kind == upperBit && before != upperBit ? 1 : 0;
            before = kind;
        }
        countPair(shape, last, unit);
        last = unit;
        lowerRun = kind == lowerBit ? lowerRun + 1 : 0;
        shape.longestLower = qMax(shape.longestLower, lowerRun);
        shape.isHex = shape.isHex && isHexDigit(unit);
        seen[unit.unicode() >> 6 & 1] |= quint64(1) << (unit.unicode() & 63);
    }
    shape.distinct = std::popcount(seen[0]) + std::popcount(seen[1]);
    return shape;
}

bool isFilled(const RunShape& shape) {
    const int leastDistinct = shape.size < 20 ? 6 : 8;
    const bool hasKinds = shape.digits > 0 || (shape.lower > 1 && shape.upper > 1);
    return shape.distinct >= leastDistinct && hasKinds;
}

bool looksGenerated(const RunShape& shape) {
    return isFilled(shape) && shape.changeRate() >= 12;
}

} // namespace quorvel
