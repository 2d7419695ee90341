#include "smart/masking/ValueCandidate.h"

#include "foundation/Folding.h"
#include "smart/masking/CharacterBits.h"
#include "smart/masking/ValueWords.h"

#include <QStringTokenizer>

#include <algorithm>

namespace quorvel {

namespace {

template <size_t size>
bool isOneOf(const QStringView (&words)[size], QStringView word) {
    return std::ranges::find(words, word) != std::end(words);
}

bool isOnlyOf(QStringView text, int bits, QStringView marks = {}) {
    return std::ranges::all_of(
        text, [=](QChar unit) { return hasBit(unit, bits) || marks.contains(unit); });
}

/// $NAME, %NAME%, :name, @name, {name}.
bool isReference(QStringView value) {
    const QChar first = value.front();
    const RunShape shape = shapeOf(value);
    const bool isGenerated = shape.digits > 1 && shape.lower > 1 && shape.upper > 1;
    if (first == u'$' && isGenerated && shape.symbols == 1)
        return false;
    if (first == u'$')
        return isOnlyOf(value.mid(1), wordBit, u"{}:.->$[]()'\"") &&
               !hasBit(unitAt(value, 1), digitBit);
    if (first == u'%')
        return value.size() < 4 || (value.endsWith(u'%') && value.size() > 2);
    if (first == u':' || first == u'@' || first == u'&' || first == u'*' || first == u'?')
        return isOnlyOf(value.mid(1), lowerBit | upperBit, u"_") && value.size() < 24 &&
               (value.size() < 3 || holdsLabel(value) || first == u'?');
    return false;
}

bool isPath(QStringView value) {
    const bool hasDrive = value.size() > 2 && isAsciiLetter(value[0]) && value[1] == u':' &&
                          (value[2] == u'\\' || value[2] == u'/');
    return hasDrive || value.contains(u"://") || value.startsWith(u"./") ||
           value.startsWith(u"../") || value.startsWith(u"~/") || value.startsWith(u"//") ||
           (value.startsWith(u'/') &&
            (value.mid(1).contains(u'/') || isOnlyOf(value.mid(1), lowerBit)));
}

bool isMailAddress(QStringView value) {
    const qsizetype at = value.indexOf(u'@');
    const qsizetype dot = value.lastIndexOf(u'.');
    return at > 0 && dot > at + 1 && dot + 2 < value.size() &&
           isOnlyOf(value.mid(at + 1), wordBit, u".-") && isOnlyOf(value.mid(dot + 1), lowerBit);
}

} // namespace

QChar Candidate::after() const {
    return unitAt(text, value.end);
}

Candidate candidateFor(QStringView text, const Label& label, const LabelledValue& value) {
    const QStringView written = value.in(text);
    return {text, label, value, written, folded(written), shapeOf(written)};
}

bool isOrdinaryValue(const Candidate& candidate) {
    return isOneOf(ordinaryValues, QStringView(candidate.folded));
}

bool isLocation(const Candidate& candidate) {
    return isPath(candidate.written) || isMailAddress(candidate.written);
}

bool isFiller(const Candidate& candidate) {
    const QStringView folded = candidate.folded;
    // A role of a markup language: ":name:`text`".
    if (folded.startsWith(u':') && folded.indexOf(u':', 1) > 1)
        return true;
    const auto begins = [folded](QStringView start) { return folded.startsWith(start); };
    if (std::ranges::any_of(fillerBeginnings, begins) || isReference(candidate.written))
        return true;
    if (candidate.shape.distinct == 1 && (candidate.written.size() > 3 || !candidate.hasDigit()))
        return true;
    const bool isTemplate =
        folded.contains(u"${") || folded.contains(u"{{") || folded.contains(u"$(") ||
        folded.contains(u"<%") || folded.contains(u"xxxx") || folded.contains(u"****") ||
        folded.contains(u"\u2022\u2022") || folded.endsWith(u"_here") ||
        folded.endsWith(u"-here") || folded.startsWith(u".*") || folded.contains(u"%s") ||
        folded.contains(u"[:") || folded.contains(u"anonymous") || folded.startsWith(u"&#") ||
        folded.startsWith(u"&lt;") || folded.startsWith(u"\\u20") || folded.startsWith(u"$!") ||
        folded.endsWith(u"n't") || folded.startsWith(u"qr/") || folded.contains(u"password=") ||
        folded.endsWith(u"...") || folded.endsWith(u'\u2026');
    return isTemplate || (folded.contains(u'<') && folded.endsWith(u'>'));
}

bool isExpression(const Candidate& candidate) {
    const QStringView value = candidate.written;
    const qsizetype open = value.indexOf(u'(');
    const qsizetype index = value.indexOf(u'[');
    if (open > 0 && isOnlyOf(value.left(open), wordBit, u".:>-<!*&?"))
        return true;
    if (index > 0 && isOnlyOf(value.left(index), wordBit, u".>-") &&
        (value.endsWith(u']') || value.mid(index).size() < 4 || value.contains(u"['") ||
         candidate.after() == u'"' || candidate.after() == u'\''))
        return true;
    if (value.front() == u'(' || value.front() == u'{' || value.front() == u'[')
        return true;
    if (value.contains(u"->") || value.contains(u"::") || value.contains(u"=>") ||
        value.contains(u"^."))
        return true;
    const bool isPathOfNames = value.contains(u'.') && isOnlyOf(value, wordBit, u".?!") &&
                               candidate.shape.digits * 4 < candidate.shape.size &&
                               isLetter(value.back());
    return isPathOfNames && (candidate.shape.digits == 0 || holdsLabel(value));
}

bool isNameOfVariable(const Candidate& candidate) {
    constexpr int mostChanges = 7;
    const QStringView value = candidate.written;
    if (!isOnlyOf(value, wordBit, u"-."))
        return false;
    const bool isCompound = value.contains(u'_') || value.contains(u'-') || value.contains(u'.');
    const bool hasHump =
        candidate.shape.lower > 0 && candidate.shape.upper > 0 && !value.mid(1).isEmpty() &&
        std::ranges::any_of(value.mid(1), [](QChar unit) { return unit.isUpper(); });
    const bool isConstant = candidate.shape.lower == 0 && candidate.shape.upper > 2 &&
                            (isCompound || candidate.shape.digits == 0) &&
                            candidate.shape.digits * 3 < candidate.shape.size &&
                            candidate.shape.changes < mostChanges;
    if (isConstant)
        return true;
    const bool isKey = value.endsWith(u"key", Qt::CaseInsensitive);
    if (isKey && hasHump && candidate.shape.longestLower >= 4)
        return true;
    if (candidate.shape.digits * 5 > candidate.shape.size || candidate.shape.digits > 3)
        return false;
    const bool isOfWords = candidate.label.kind != LabelKind::password &&
                           !candidate.value.isQuoted && candidate.shape.longestLower >= 4 &&
                           candidate.shape.changeRate() < 25;
    return (isCompound || hasHump) && (holdsLabel(value) || isKey || isOfWords);
}

bool readsOn(const Candidate& candidate) {
    if (candidate.value.isQuoted || candidate.value.separator == Separator::tag)
        return false;
    const QStringView text = candidate.text;
    const qsizetype next = afterBlanks(text, candidate.value.end);
    if (next == candidate.value.end || !isLetter(unitAt(text, next)))
        return false;
    const qsizetype wordEnd = endOfBits(text.left(next + 40), next, wordBit);
    const qsizetype mark = afterBlanks(text, wordEnd);
    // Another label may follow on the same line.
    return unitAt(text, mark) != u':' && unitAt(text, mark) != u'=';
}

bool isSentence(const Candidate& candidate) {
    if (!candidate.written.contains(u' '))
        return false;
    const QChar last = candidate.written.back();
    if ((last == u'.' || last == u':' || last == u'\u2026') && !candidate.hasDigit())
        return true;
    int words = 0;
    const auto isOrdinary = [&](QStringView word) {
        ++words;
        return isOneOf(sentenceWords, word) || (!candidate.hasDigit() && holdsLabel(word));
    };
    for (const QStringView word : QStringView(candidate.folded).tokenize(u' '))
        if (isOrdinary(word))
            return true;
    const bool isTitle = candidate.shape.upper > 0 && !candidate.hasDigit();
    return words < 3 ? !candidate.hasDigit() : isTitle;
}

} // namespace quorvel
