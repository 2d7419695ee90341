#include "smart/masking/KeyRules.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeRules.h"

#include <algorithm>

namespace quorvel {

namespace {

bool isWordAsKey(const Candidate& candidate) {
    if (candidate.shape.upperRuns >= 3 && candidate.shape.size >= 12 &&
        candidate.shape.randomness() >= 0)
        return true;
    const LabelledValue& value = candidate.value;
    const bool isExplicit = candidate.label.style == LabelStyle::constant ||
                            value.separator == Separator::tag ||
                            (value.isQuoted && candidate.shape.size >= 10);
    return isExplicit && candidate.shape.size >= 6 &&
           candidate.shape.upper * 2 <= candidate.shape.size;
}

/// Keys of programs that make one-time codes.
bool isBase32(const Candidate& candidate) {
    constexpr int least = 16;
    return candidate.shape.size >= least && candidate.shape.digits > 0 &&
           std::ranges::all_of(candidate.written, [](QChar unit) {
               return hasBit(unit, upperBit) || (unit >= u'2' && unit <= u'7');
           });
}

/// "WEATHER_KEY=8f3a22bc91d04e77a1b5"
bool isNamedKey(const Candidate& candidate) {
    constexpr int least = 20;
    const RunShape& shape = candidate.shape;
    const Label& label = candidate.label;
    const bool isPublic = candidate.text.mid(label.start, label.end - label.start)
                              .contains(u"pub", Qt::CaseInsensitive);
    return label.style == LabelStyle::constant && candidate.isAssigned() && !isPublic &&
           shape.size >= least && shape.symbols == 0 && shape.digits >= 3 && shape.letters() > 3 &&
           looksGenerated(shape);
}

} // namespace

bool isArgument(const Candidate& candidate) {
    return candidate.after() == candidate.text[candidate.value.start - 1] &&
           (candidate.hasDigit() || candidate.shape.symbols > 0) && candidate.shape.size >= 4 &&
           candidate.shape.letters() > 0 && !holdsLabel(candidate.folded) &&
           !candidate.written.contains(u' ') && !isExpression(candidate);
}

bool isKey(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    constexpr int fingerprint = 40;
    const bool isFingerprint = shape.isHex && shape.upper > 0 && shape.size == fingerprint &&
                               candidate.value.separator == Separator::blank;
    if (candidate.written.contains(u' ') || shape.size < 6 || isNameOfVariable(candidate) ||
        isFingerprint)
        return false;
    if (candidate.value.separator == Separator::comma)
        return isArgument(candidate) && shape.size >= 8;
    if (candidate.value.isFar || candidate.value.separator == Separator::verb)
        return shape.size >= 12 && shape.digits >= 2 && shape.letters() > 1 &&
               looksGenerated(shape);
    if (isBase32(candidate))
        return true;
    const bool isAssigned = candidate.isAssigned() || candidate.label.style == LabelStyle::option ||
                            candidate.value.separator == Separator::lineEnd ||
                            candidate.value.separator == Separator::tab;
    if (shape.digits == 0 && shape.symbols == 0)
        return candidate.isAssigned() && isWordAsKey(candidate);
    if (shape.digits == 0)
        return candidate.isAssigned() && candidate.label.style == LabelStyle::constant &&
               shape.size >= 8;
    return shape.letters() > 0 && (isAssigned || (shape.size >= 12 && shape.changeRate() >= 20));
}

bool isToken(const Candidate& candidate) {
    constexpr int longestNumber = 18;
    const RunShape& shape = candidate.shape;
    if (candidate.written.startsWith(u"0x") && shape.size <= longestNumber)
        return false;
    const bool isRandomWord = shape.upperRuns >= 3 && shape.size >= 16 && shape.randomness() >= 12;
    if (shape.size < 8 || (shape.digits == 0 && !isRandomWord) || shape.letters() == 0 ||
        candidate.written.contains(u' ') || isNameOfVariable(candidate))
        return false;
    const bool isAssigned = candidate.isAssigned() || candidate.label.style == LabelStyle::option;
    return isAssigned ? shape.digits >= 2 || shape.size >= 16
                      : shape.size >= 16 && shape.digits >= 3 && looksGenerated(shape);
}

bool isNetworkKey(const Candidate& candidate) {
    if (isNamedKey(candidate))
        return true;
    return (candidate.isAssigned() || candidate.shape.digits >= 8) && candidate.shape.size >= 8 &&
           (candidate.shape.digits > 0 || candidate.shape.symbols > 1) &&
           !candidate.written.contains(u' ') && followsNetwork(candidate);
}

} // namespace quorvel
