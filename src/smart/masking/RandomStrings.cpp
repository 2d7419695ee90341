#include "smart/masking/RandomStrings.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/RunShape.h"
#include "smart/masking/TokenForms.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype leastRandom = 24;
constexpr qsizetype mostRandom = 256;

/// What is named by such a word is public, or no secret.
constexpr QStringView publicNames[] = {
    u"sha",      u"hash",   u"digest",   u"integrity", u"pub",   u"fingerprint", u"checksum",
    u"etag",     u"md5",    u"h1:",      u"base64,",   u"ssh-",  u"ecdsa",       u"nonce",
    u"boundary", u"cert",   u"revision", u"build",     u"guid",  u"uuid",        u"request",
    u"trace",    u"cursor", u"object",   u"document",  u"class", u"href",        u"src",
    u"commit",   u"cid",    u"address",  u"wallet",    u"txid",  u"peer",        u"version",
};

bool isNamedPublic(QStringView text, qsizetype start) {
    constexpr qsizetype reach = 32;
    const qsizetype from = qMax(qsizetype(0), start - reach);
    QStringView before = text.mid(from, start - from);
    before = before.mid(before.lastIndexOf(u'\n') + 1);
    return std::ranges::any_of(publicNames, [before](QStringView name) {
        return before.contains(name, Qt::CaseInsensitive);
    });
}

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
    const bool isBase64 = marks <= 3 + shape.size / 6;
    const bool isRandom = shape.digits > 0 ? shape.randomness() >= leastRandomness
                                           : shape.randomness() >= leastWithoutDigits;
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

bool looksLikeCode(QStringView run) {
    constexpr QStringView codeMarks[] = {
        u"::",  u"->", u"</", u"/>", u"://", u"=>",  u"()", u"[]", u"{}", u"\\", u"A-Z", u"a-z",
        u"0-9", u"(?", u"${", u"{{", u");",  u"=\"", u":$", u"/*", u"*.", u"*/", u"++",  u"!$",
    };
    const qsizetype open = run.indexOf(u'(');
    const bool isCall = open > 1 && isAsciiLetter(run[open - 1]) && run.contains(u')');
    const bool isStatement = run.contains(u":=") || run.contains(u'\'') || run.contains(u'"');
    return isCall || isStatement || isSetting(run) || isAddress(run) || run.front() == u'<' ||
           run.startsWith(u"./") || run.startsWith(u"~/") ||
           std::ranges::any_of(codeMarks, [run](QStringView mark) { return run.contains(mark); });
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
    if (run.contains(u'.') || run.startsWith(u"AAAA") || run.startsWith(u"_Z") ||
        run.startsWith(u"pk_") || run.startsWith(u"phc_"))
        return {};
    const qsizetype padding = run.endsWith(u"==") ? 2 : run.endsWith(u'=') ? 1 : 0;
    const RunShape shape = shapeOf(run.chopped(padding));
    if (!isMixedRandom(shape, marksIn(run)) && !isLowRandom(text, shape))
        return {};
    if (isNamedPublic(text, start) || isLineOfFile(text, start, end))
        return {};
    return hiddenPart(start, end, 0);
}

std::optional<SecretRange> lonePassword(QStringView text) {
    constexpr qsizetype least = 12;
    constexpr qsizetype most = 64;
    constexpr int fewPairs = 5;
    constexpr int tolerance = 15;
    if (text.size() > mostRandom)
        return {};
    const QStringView run = text.trimmed();
    if (run.size() < least || run.size() > most || !isOneWord(run))
        return {};
    const RunShape shape = shapeOf(run);
    const bool hasAll = shape.lower > 0 && shape.upper > 0 && shape.digits > 0 && shape.symbols > 0;
    const int variety = (shape.changes + shape.symbols) * 100 / shape.size;
    const bool isWordy = shape.pairs > fewPairs && variety + tolerance < shape.frequentRate();
    if (!hasAll || shape.others > 0 || shape.longestLower > 8 || isWordy || variety < 25 ||
        !hasPasswordMarks(run, variety, shape) || looksLikeCode(run))
        return {};
    return SecretRange{run.begin() - text.begin(), run.size()};
}

} // namespace quorvel
