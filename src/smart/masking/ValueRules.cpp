#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeRules.h"
#include "smart/masking/KeyRules.h"
#include "smart/masking/LabelledValues.h"
#include "smart/masking/ValueCandidate.h"

#include <algorithm>

namespace quorvel {

namespace {

bool endsStatement(const Candidate& candidate) {
    const QChar after = candidate.after();
    return after == u';' || after == u',' || after == u')' || after == u'}' || after == u']' ||
           after == u':';
}

bool isAtLineStart(const Candidate& candidate) {
    const qsizetype start = candidate.label.start;
    return start == 0 || hasBit(candidate.text[start - 1], lineEndBit);
}

bool endsLine(const Candidate& candidate) {
    const qsizetype next = afterBlanks(candidate.text, candidate.value.end);
    return next >= candidate.text.size() || hasBit(candidate.text[next], lineEndBit);
}

/// "Server=x;Password=y;Database=z".
bool isInConnection(const Candidate& candidate) {
    return candidate.after() == u';' && candidate.value.isTight &&
           (unitAt(candidate.text, candidate.label.start - 1) == u';' ||
            candidate.text.mid(candidate.value.end, 40).contains(u'='));
}

bool isAssignedWord(const Candidate& candidate) {
    const bool hasHump = candidate.shape.upper > 0 && !candidate.written[0].isUpper();
    if (candidate.shape.size < 4)
        return false;
    if (isInConnection(candidate))
        return true;
    const QChar before = unitAt(candidate.text, candidate.label.start - 1);
    const bool isQuotedPair = (before == u'"' || before == u'\'') && candidate.after() == before;
    if (endsStatement(candidate) || isQuotedPair)
        return false;
    if (candidate.value.separator == Separator::equals)
        return !hasHump && (candidate.value.isTight || isAtLineStart(candidate));
    return true;
}

/// Letters alone may as well be a word of prose or a name in a program.
bool isWordAsPassword(const Candidate& candidate) {
    const LabelStyle style = candidate.label.style;
    const LabelledValue& value = candidate.value;
    const bool isExplicit = value.isQuoted || style == LabelStyle::constant ||
                            style == LabelStyle::parameter || value.separator == Separator::tag;
    if (holdsLabel(candidate.folded) && candidate.folded.startsWith(u"pass"))
        return isExplicit && candidate.shape.upper == 0 && style != LabelStyle::option;
    if (style == LabelStyle::option)
        return candidate.shape.size >= 4 && candidate.shape.lower > 0 && endsLine(candidate);
    return isExplicit ? candidate.shape.size >= 3 : isAssignedWord(candidate);
}

/// "passwords2.txt"
bool isFileName(QStringView value) {
    constexpr qsizetype mostSuffix = 5;
    const qsizetype dot = value.lastIndexOf(u'.');
    return dot > 0 && value.size() - dot - 1 <= mostSuffix && value.size() - dot > 2 &&
           std::ranges::all_of(value.mid(dot + 1),
                               [](QChar unit) { return hasBit(unit, lowerBit); });
}

/// "x509_name_of_function"
bool isSnake(const Candidate& candidate) {
    constexpr int leastJoints = 2;
    return candidate.written.count(u'_') >= leastJoints && candidate.shape.longestLower >= 3 &&
           candidate.shape.symbols == candidate.written.count(u'_');
}

/// "Pass the flag to x86init", "the tests pass on arm64".
bool isVerbPass(const Candidate& candidate) {
    const Label& label = candidate.label;
    const QStringView name = candidate.text.mid(label.start, label.end - label.start);
    if (name.compare(u"pass", Qt::CaseInsensitive) != 0)
        return false;
    const qsizetype next = afterBlanks(candidate.text, label.end);
    const bool isVerb = candidate.value.separator == Separator::verb &&
                        candidate.text.mid(next, 3).compare(u"is ", Qt::CaseInsensitive) != 0;
    const bool isOrder = candidate.value.separator == Separator::blank && name == u"Pass";
    return isVerb || isOrder || candidate.written.contains(u'_');
}

/// Without punctuation between label and value only what is clearly no word counts.
bool isStriking(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    if (candidate.value.isFar && isFileName(candidate.written))
        return false;
    if (isSnake(candidate) || candidate.written.startsWith(u'-') || isVerbPass(candidate))
        return false;
    // A sentence may end with a question or a call.
    QStringView inner = candidate.written;
    while (inner.endsWith(u'?') || inner.endsWith(u'!'))
        inner.chop(1);
    const bool isSpecial = shape.symbols > 0 && candidate.written.size() >= 8 &&
                           std::ranges::any_of(inner, [](QChar unit) {
                               return QStringView(u"!@#$%^&*?").contains(unit);
                           });
    const bool isMixed = shape.digits > 0 && shape.upper > 0 && shape.lower > 0;
    return shape.size >= 6 && shape.letters() > 0 &&
           ((shape.digits > 0 && shape.letters() > 1 && shape.lower > 0) || isSpecial) &&
           (isMixed || (!candidate.written.contains(u'/') && !candidate.written.contains(u'=')));
}

bool standsApart(const Candidate& candidate) {
    const QChar after = candidate.after();
    const bool isClosed = after == u',' || after == u'.' || after == u';' || after == u')';
    return !readsOn(candidate) || isClosed || candidate.value.isQuoted;
}

/// "PASSWORD" in prose, not "DB_PASSWORD".
bool isLoudWord(const Candidate& candidate) {
    const Label& label = candidate.label;
    return label.style == LabelStyle::constant &&
           !candidate.text.mid(label.start, label.end - label.start).contains(u'_');
}

/// Digits alone, where a label of a password says that they are meant.
bool isNumberAsPassword(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    const QStringView written = candidate.written;
    const bool isGrouped = written.size() == 8 && written[2] == u'-' && written[5] == u'-';
    const bool isMarked = shape.symbols == 1 && (written.endsWith(u'#') || written.endsWith(u'*'));
    const bool isNumber =
        shape.letters() == 0 && shape.digits >= 4 && (shape.symbols == 0 || isGrouped || isMarked);
    const bool isAtEnd = candidate.label.style == LabelStyle::plain || !readsOn(candidate);
    const bool isLong = shape.digits >= 6 && candidate.value.separator == Separator::blank;
    return isNumber && isAtEnd && (candidate.value.separator == Separator::verb || isLong);
}

/// "password for the safe: 81-44-27".
bool isFarNumber(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    const QStringView written = candidate.written;
    const bool isGrouped = written.size() == 8 && written[2] == u'-' && written[5] == u'-';
    return shape.letters() == 0 && shape.digits >= 4 && (shape.symbols == 0 || isGrouped) &&
           !readsOn(candidate);
}

/// More than a word with a number: what follows in the sentence does not matter.
bool isStrong(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    if (candidate.value.separator != Separator::verb || shape.digits == 0)
        return false;
    const bool isMixed = shape.upper > 0 && shape.lower > 0;
    // "8-character", "SHA256-hashed".
    const bool isMeasure = hasBit(candidate.written.front(), digitBit) && shape.symbols == 1 &&
                           candidate.written.contains(u'-') && shape.changes <= 1;
    return (isMixed || shape.symbols > 0 || shape.size >= 8) && !isMeasure && shape.changes > 0;
}

bool isPassword(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    if (shape.letters() + shape.digits == 0 || isNameOfVariable(candidate))
        return false;
    const Separator separator = candidate.value.separator;
    const bool isOption = candidate.label.style == LabelStyle::option;
    if (separator == Separator::comma)
        return isArgument(candidate);
    if (isNumberAsPassword(candidate))
        return true;
    const bool isFarAssigned = candidate.isSeparated() && candidate.value.isFar;
    if (isFarAssigned && isFarNumber(candidate))
        return true;
    if ((!candidate.isAssigned() && !isOption) || isFarAssigned)
        return isStriking(candidate) && (isStrong(candidate) || standsApart(candidate)) &&
               (separator != Separator::blank || candidate.value.isQuoted ||
                candidate.label.style == LabelStyle::word ||
                candidate.label.style == LabelStyle::plain || isLoudWord(candidate));
    const bool isWord = shape.digits == 0 && shape.symbols == 0;
    if (isWord)
        return !readsOn(candidate) && isWordAsPassword(candidate);
    if (shape.digits == 0 && readsOn(candidate))
        return false;
    const bool isHyphenated =
        shape.digits == 0 && shape.upper == 0 &&
        candidate.written.count(u'-') + candidate.written.count(u'_') == shape.symbols;
    if (isHyphenated && !candidate.value.isQuoted && candidate.label.style != LabelStyle::constant)
        return shape.symbols >= 3 || candidate.value.separator == Separator::tag;
    return shape.size >= (candidate.value.isQuoted ? 3 : 4);
}

bool isPhrase(const Candidate& candidate) {
    if (!candidate.isAssigned() && candidate.value.separator != Separator::lineEnd)
        return isPassword(candidate);
    const bool hasWords = candidate.written.contains(u' ');
    if (hasWords)
        return !isSentence(candidate);
    const bool isName =
        !candidate.text.mid(candidate.label.start, candidate.label.end - candidate.label.start)
             .contains(u"pass", Qt::CaseInsensitive);
    return (candidate.hasDigit() || !isName) && isPassword(candidate);
}

/// Without punctuation before them, words of letters are dismissed before all else.
bool isWorthReading(QStringView text, const Label& label, const LabelledValue& value) {
    if (value.separator != Separator::blank && value.separator != Separator::verb)
        return true;
    if (text.mid(label.start, 10).compare(u"identified", Qt::CaseInsensitive) == 0)
        return value.isQuoted;
    return value.isQuoted || label.style == LabelStyle::option || label.kind == LabelKind::answer ||
           !std::ranges::all_of(value.in(text), isLetter);
}

/// Test programs report "PASS: name" and "pass: 12/15".
bool isTestResult(const Candidate& candidate) {
    const Label& label = candidate.label;
    const bool isShort = candidate.text.mid(label.start, label.end - label.start)
                             .compare(u"pass", Qt::CaseInsensitive) == 0;
    const bool isLoud = candidate.text[label.end - 1].isUpper();
    const bool isCount = candidate.shape.letters() == 0 && candidate.shape.symbols > 0;
    return isShort && candidate.value.separator != Separator::equals && !candidate.value.isQuoted &&
           (isLoud || isCount);
}

bool isOfKind(const Candidate& candidate) {
    switch (candidate.label.kind) {
    case LabelKind::password:
        return isPassword(candidate);
    case LabelKind::secret:
        return isKey(candidate);
    case LabelKind::token:
        return isToken(candidate);
    case LabelKind::pin:
        return isPin(candidate);
    case LabelKind::code:
        return isOpeningCode(candidate);
    case LabelKind::phrase:
        return isPhrase(candidate);
    case LabelKind::answer:
        return isSecretAnswer(candidate);
    case LabelKind::pair:
        return isPassword(candidate);
    case LabelKind::codes:
        return isKey(candidate);
    case LabelKind::networkKey:
        return isNetworkKey(candidate);
    default:
        return false;
    }
}

} // namespace

bool isSecretValue(QStringView text, const Label& label, const LabelledValue& value) {
    if (value.end <= value.start)
        return false;
    if (!isWorthReading(text, label, value))
        return false;
    const Candidate candidate = candidateFor(text, label, value);
    if (isFiller(candidate) || isOrdinaryValue(candidate) || isLocation(candidate) ||
        isTestResult(candidate))
        return false;
    const bool isCode = !value.isQuoted && isExpression(candidate);
    return !isCode &&
           !(value.isQuoted && label.kind != LabelKind::phrase && isSentence(candidate)) &&
           isOfKind(candidate);
}

} // namespace quorvel
