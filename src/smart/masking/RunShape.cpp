#include "smart/masking/RunShape.h"

#include "smart/masking/CharacterBits.h"

#include <bit>

namespace quorvel {

namespace {

constexpr qsizetype mostLooked = 320;

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
    for (const QChar unit : run) {
        const quint8 kind = bitsOf(unit) & (lowerBit | upperBit | digitBit | symbolBit);
        ++*counterFor(shape, kind);
        shape.changes += before != 0 && kind != before ? 1 : 0;
        before = kind;
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
