#include "smart/masking/CodeRules.h"

#include "smart/masking/CharacterBits.h"
#include "smart/masking/CodeWords.h"

#include <QStringTokenizer>

#include <algorithm>

namespace quorvel {

namespace {

constexpr qsizetype context = 48;

/// Stems that are looked for anywhere in a text; most places are dismissed by three letters.
template <size_t size>
class StemSet {
public:
    constexpr explicit StemSet(const QStringView (&stems)[size])
        : m_stems(stems) {
        for (const QStringView stem : stems)
            m_beginnings.add(stem[0].unicode(), stem[1].unicode(), stem[2].unicode());
    }

    bool isIn(QStringView text) const {
        for (qsizetype at = 0; at + 2 < text.size(); ++at)
            if (m_beginnings.mayHold(text[at], text[at + 1], text[at + 2]) && isAt(text, at))
                return true;
        return false;
    }

private:
    bool isAt(QStringView text, qsizetype at) const {
        const char16_t low = text[at].unicode() & 31U;
        return std::ranges::any_of(m_stems, [&](QStringView stem) {
            return (stem[0].unicode() & 31U) == low && stem.size() <= text.size() - at &&
                   text.mid(at, stem.size()).compare(stem, Qt::CaseInsensitive) == 0;
        });
    }

    const QStringView (&m_stems)[size];
    TrigramFilter m_beginnings;
};

constexpr StemSet opening(openingStems);
constexpr StemSet otherCodes(otherCodeStems);
constexpr StemSet questions(questionStems);
constexpr StemSet networks(networkStems);

/// What stands before the value on its line and in the sentence before.
QStringView before(const Candidate& candidate, qsizetype reach) {
    const qsizetype from = qMax(qsizetype(0), candidate.label.start - reach);
    return candidate.text.mid(from, candidate.value.start - from);
}

/// The same without the lines before.
QStringView beforeOnLine(const Candidate& candidate) {
    if (candidate.value.start < candidate.label.start)
        return candidate.text.mid(candidate.value.start,
                                  candidate.label.end - candidate.value.start);
    const QStringView found = before(candidate, context);
    const qsizetype labelAt = found.size() - (candidate.value.start - candidate.label.start);
    const qsizetype line = found.left(labelAt).lastIndexOf(u'\n');
    return found.mid(line + 1);
}

QStringView afterOnLine(const Candidate& candidate) {
    const QStringView rest = candidate.text.mid(candidate.value.end, context);
    const qsizetype end = rest.indexOf(u'\n');
    return end < 0 ? rest : rest.left(end);
}

/// Postal codes are called "PIN" in India; in addresses they follow words on the same line.
bool isPostalCode(const Candidate& candidate) {
    const qsizetype start = candidate.label.start;
    const QStringView before = candidate.text.left(start).right(24).trimmed();
    const bool isCode = candidate.text.mid(start, 8).contains(u"cod", Qt::CaseInsensitive);
    return candidate.shape.size == 6 && !candidate.value.isFar &&
           (isCode || before.endsWith(u',') || before.endsWith(u'-'));
}

/// "4821", "903 117", "41-77-20".
bool isGroupedNumber(const Candidate& candidate) {
    const auto isPart = [](QChar unit) {
        return hasBit(unit, digitBit | blankBit) || unit == u'-';
    };
    const QStringView written = candidate.written;
    const qsizetype firstGroup = written.indexOf(u'-');
    for (const QStringView group : written.tokenize(u'-'))
        if (firstGroup > 0 && group.size() != firstGroup)
            return false;
    // A year begins a date.
    return std::ranges::all_of(written, isPart) && hasBit(written.front(), digitBit) &&
           hasBit(written.back(), digitBit) && firstGroup != 4 && firstGroup != 1;
}

/// The few digits on the back of a card.
bool isOfCard(const Candidate& candidate) {
    constexpr QStringView names[] = {u"cv", u"csc", u"pr\u00FCf", u"kartenpr"};
    const QStringView label = candidate.text.mid(candidate.label.start, 8);
    return std::ranges::any_of(
        names, [label](QStringView name) { return label.startsWith(name, Qt::CaseInsensitive); });
}

bool reads(const Candidate& candidate) {
    const QStringView rest = candidate.text.mid(candidate.value.end, 3);
    const bool isPercent = rest.startsWith(u'%') || rest.startsWith(u" %");
    return !isPercent && !rest.startsWith(u'/');
}

/// Codes of networks are passwords.
bool isNetworkPassword(const Candidate& candidate, QStringView line) {
    const RunShape& shape = candidate.shape;
    return shape.size >= 8 && shape.digits > 0 && candidate.value.separator != Separator::blank &&
           !candidate.written.contains(u' ') && networks.isIn(line);
}

} // namespace

bool isPin(const Candidate& candidate) {
    const RunShape& shape = candidate.shape;
    const bool isLoud = candidate.text[candidate.label.end - 1].isUpper();
    const bool isSecurityCode = isOfCard(candidate);
    // Longer names have no other meaning.
    constexpr qsizetype shortName = 6;
    const bool isSeparated = candidate.value.separator != Separator::blank || isLoud ||
                             isSecurityCode ||
                             candidate.label.end - candidate.label.start > shortName;
    return isGroupedNumber(candidate) && shape.digits >= (isSecurityCode ? 3 : 4) &&
           shape.digits <= 10 && isSeparated && reads(candidate) && !isPostalCode(candidate);
}

bool isOpeningCode(const Candidate& candidate) {
    constexpr int most = 12;
    const RunShape& shape = candidate.shape;
    const bool hasLetters = shape.letters() > 0 && shape.letters() <= 2 && shape.lower == 0;
    const bool hasMark = candidate.written.endsWith(u'#') || candidate.written.endsWith(u'*');
    const bool isNumber = isGroupedNumber(candidate) && shape.digits >= 4;
    const bool isMixed = (hasLetters || hasMark) && shape.digits >= 3 &&
                         !candidate.written.contains(u' ') && shape.size <= 10 &&
                         (hasMark || candidate.value.separator != Separator::blank);
    const bool isYear =
        candidate.value.separator == Separator::blank && shape.size == 4 &&
        (candidate.written.startsWith(u"19") || candidate.written.startsWith(u"20"));
    const bool isPrefixed = candidate.written.indexOf(u'-') == 1 && shape.digits >= 5;
    const QStringView line = beforeOnLine(candidate);
    if (isNetworkPassword(candidate, line))
        return true;
    if ((!isNumber && !isMixed && !isPrefixed) || shape.digits > most || isYear ||
        !reads(candidate))
        return false;
    if (otherCodes.isIn(line))
        return false;
    return candidate.label.style == LabelStyle::plain || opening.isIn(line) ||
           opening.isIn(afterOnLine(candidate));
}

bool isSecretAnswer(const Candidate& candidate) {
    constexpr qsizetype reach = 100;
    constexpr qsizetype mostLetters = 40;
    constexpr qsizetype mostWords = 4;
    return candidate.isAssigned() && candidate.shape.letters() + candidate.shape.digits >= 3 &&
           candidate.written.size() <= mostLetters && candidate.written.count(u' ') < mostWords &&
           questions.isIn(before(candidate, reach));
}

bool followsNetwork(const Candidate& candidate) {
    constexpr qsizetype reach = 80;
    return networks.isIn(before(candidate, reach));
}

} // namespace quorvel
