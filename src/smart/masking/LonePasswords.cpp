#include "smart/masking/CharacterBits.h"
#include "smart/masking/PublicForms.h"
#include "smart/masking/RandomStrings.h"
#include "smart/masking/RunShape.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype mostRandom = 256;

bool isOneWord(QStringView run) {
    return std::ranges::none_of(run, [](QChar unit) { return hasBit(unit, blankBit); });
}

/// Signs of passwords; those that programs and settings are full of count only among characters
/// that are random beyond doubt.
bool hasPasswordMarks(QStringView run, int variety, const RunShape& shape) {
    constexpr int leastVariety = 48;
    constexpr int mostFrequent = 40;
    const auto holdsAny = [run](QStringView marks) {
        return std::ranges::any_of(run, [marks](QChar unit) { return marks.contains(unit); });
    };
    return holdsAny(u"!@#$%^&*?~") || (holdsAny(u"+=;|<>{}[]()") && variety >= leastVariety &&
                                       shape.frequentRate() <= mostFrequent);
}

/// "name@host.example": letters and dots alone behind the only "@".
bool isAddress(QStringView run) {
    const QStringView host = run.mid(run.lastIndexOf(u'@') + 1);
    return host.size() < run.size() && host.contains(u'.') &&
           std::ranges::all_of(host, [](QChar unit) {
               return isAsciiAlphanumeric(unit) || unit == u'.' || unit == u'-' || unit == u':';
           });
}

/// "Name.Of-Setting=15%".
bool isSetting(QStringView run) {
    constexpr qsizetype leastName = 4;
    const qsizetype equals = run.indexOf(u'=');
    return equals >= leastName && std::ranges::all_of(run.left(equals), [](QChar unit) {
               return isAsciiLetter(unit) || QStringView(u"._-#").contains(unit);
           });
}

/// "Bug#111503."
bool isNumbered(QStringView run) {
    const qsizetype mark = run.indexOf(u'#');
    const auto isLetterOrMark = [](QChar unit) { return isAsciiLetter(unit) || unit == u'('; };
    return mark > 0 && std::ranges::all_of(run.left(mark).chopped(1), isLetterOrMark) &&
           hasBit(unitAt(run, mark + 1), digitBit);
}

/// "java.lang.Object@1b6d3586", "memcpy@@GLIBC_2.14"
bool isSymbolName(QStringView run) {
    const qsizetype at = run.indexOf(u'@');
    const auto isNameUnit = [](QChar unit) {
        return isAsciiLetter(unit) || unit == u'.' || unit == u'_' || unit == u'$';
    };
    if (at < 3 || !std::ranges::all_of(run.left(at), isNameUnit))
        return false;
    const QStringView mark = run.mid(at + 1);
    return mark.startsWith(u'@') || shapeOf(mark).isHex ||
           (mark.contains(u'_') && mark.contains(u'.'));
}

/// Numbers with points between.
bool isVersion(QStringView run) {
    int points = 0;
    for (qsizetype at = 1; at + 1 < run.size(); ++at)
        if (run[at] == u'.' && hasBit(run[at - 1], digitBit) && hasBit(run[at + 1], digitBit))
            ++points;
    return points > 1;
}

/// Punctuation at the end of what changes little: a statement or the end of a sentence.
bool isSentenceEnd(QStringView run) {
    constexpr int leastChanges = 50;
    const bool isVariable = run.front() == u'$' && isAsciiLetter(unitAt(run, 1));
    const bool isEnd = QStringView(u".,;:}").contains(run.back());
    return (isEnd || isVariable) && shapeOf(run).changeRate() < leastChanges;
}

bool looksLikeCode(QStringView run) {
    constexpr QStringView codeMarks[] = {
        u"::",  u"->", u"</", u"/>",  u"://", u"=>",  u"()", u"[]", u"{}", u"\\", u"A-Z", u"a-z",
        u"0-9", u"(?", u"${", u"{{",  u");",  u"=\"", u":$", u"/*", u"=?", u"&#", u"%{",  u"%!",
        u".*",  u"#L", u"0x", u",),", u").",  u"++",  u"*.", u"*/", u"++", u"!$",
    };
    const qsizetype open = run.indexOf(u'(');
    const bool isCall = open > 1 && isAsciiLetter(run[open - 1]) && run.contains(u')');
    const bool isStatement = run.contains(u":=") || run.contains(u'\'') || run.contains(u'"');
    return isCall || isSymbolName(run) || isNumbered(run) || isVersion(run) || isSentenceEnd(run) ||
           isStatement || isSetting(run) || isAddress(run) || run.front() == u'<' ||
           run.startsWith(u"./") || run.startsWith(u"~/") ||
           std::ranges::any_of(codeMarks, [run](QStringView mark) { return run.contains(mark); });
}

/// Twenty letters and digits or so, as password managers make them; shorter ones are ids.
bool isGeneratedWord(const RunShape& shape) {
    constexpr int least = 16;
    constexpr int most = 23;
    constexpr int leastRandomness = 5;
    const bool isPlain = shape.symbols == 0 && shape.others == 0;
    return isPlain && shape.size >= least && shape.size <= most && shape.digits > 0 &&
           shape.lower >= 3 && shape.upperRuns >= 3 && shape.randomness() >= leastRandomness &&
           shape.longestLower <= 5 && shape.changeRate() >= 30;
}

/// Three groups of six with a hyphen between.
bool isGroupedPassword(QStringView run, const RunShape& shape) {
    constexpr int group = 6;
    constexpr int mostFrequent = 60;
    const bool isGrouped = shape.size == 3 * group + 2 && shape.symbols == 2 &&
                           run[group] == u'-' && run[2 * group + 1] == u'-';
    const bool isMixed =
        shape.digits > 0 && shape.digits <= 6 && shape.upper > 0 && shape.lower > 3;
    return isGrouped && isMixed && shape.others == 0 && shape.frequentRate() < mostFrequent;
}

} // namespace

std::optional<SecretRange> lonePassword(QStringView text) {
    constexpr qsizetype least = 10;
    constexpr qsizetype most = 64;
    constexpr int fewPairs = 5;
    constexpr int tolerance = 15;
    if (text.size() > mostRandom)
        return {};
    const QStringView run = text.trimmed();
    if (run.size() < least || run.size() > most || !isOneWord(run))
        return {};
    if (isPublicForm(run))
        return {};
    const RunShape shape = shapeOf(run);
    if (isGeneratedWord(shape) || isGroupedPassword(run, shape))
        return SecretRange{run.begin() - text.begin(), run.size()};
    constexpr qsizetype shortSize = 12;
    constexpr int leastChanges = 60;
    if (run.size() < shortSize && shape.changeRate() < leastChanges)
        return {};
    const bool hasAll = shape.lower > 0 && shape.upper > 0 && shape.digits > 0 && shape.symbols > 0;
    const int variety = (shape.changes + shape.symbols) * 100 / shape.size;
    const bool isWordy = shape.pairs > fewPairs && variety + tolerance < shape.frequentRate();
    if (!hasAll || shape.others > 0 || shape.longestLower > 8 || isWordy || variety < 25 ||
        !hasPasswordMarks(run, variety, shape) || looksLikeCode(run))
        return {};
    return SecretRange{run.begin() - text.begin(), run.size()};
}

} // namespace quorvel
