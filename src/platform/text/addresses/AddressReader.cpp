#include "platform/text/addresses/AddressReader.h"

#include "foundation/CodePoints.h"
#include "platform/text/addresses/AddressWords.h"

namespace quorvel {

namespace {

constexpr int longestCompound = 5;

/// The first letter that counts: behind a short article with an apostrophe.
char32_t leadingLetter(QStringView word) {
    constexpr qsizetype longestArticle = 4;
    const QStringView head = word.left(longestArticle + 1);
    const qsizetype plain = std::max(head.indexOf(u'\''), head.indexOf(u'\u2019'));
    const char32_t first = CodePoints(word).peekNext();
    if (plain < 0 || plain + 1 >= word.size() || QChar::isUpper(first))
        return first;
    return CodePoints(word.sliced(plain + 1)).peekNext();
}

bool isCaseless(char32_t letter) {
    return QChar::isLetter(letter) && QChar::toUpper(letter) == QChar::toLower(letter);
}

} // namespace

bool AddressReader::isMarkOf(qsizetype index, QStringView marks) const {
    return has(index) && m_tokens.at(index).kind == Token::Kind::mark &&
           marks.contains(m_tokens.text().at(m_tokens.at(index).start));
}

QStringView AddressReader::word(qsizetype index) const {
    return isWord(index) ? m_tokens.folded(index) : QStringView();
}

int AddressReader::digits(qsizetype index) const {
    return isNumber(index) ? m_tokens.at(index).length : 0;
}

bool AddressReader::isCapital(qsizetype index) const {
    if (!isWord(index))
        return false;
    const char32_t letter = leadingLetter(m_tokens.written(index));
    return QChar::isUpper(letter) || isCaseless(letter);
}

bool AddressReader::isUpper(qsizetype index) const {
    constexpr qsizetype longest = 40;
    if (!isWord(index) || m_tokens.at(index).length > longest)
        return false;
    return std::ranges::all_of(m_tokens.written(index),
                               [](QChar letter) { return letter.isUpper(); });
}

bool AddressReader::isHyphen(qsizetype index) const {
    return isMarkOf(index, u"-\u2010\u2011\u2013") && isGlued(index) && isGlued(index + 1);
}

qsizetype AddressReader::compoundStart(qsizetype last) const {
    qsizetype first = last;
    for (int parts = 0; parts < longestCompound && isHyphen(first - 1) && isWord(first - 2);
         ++parts)
        first -= 2;
    return first;
}

qsizetype AddressReader::compoundEnd(qsizetype first) const {
    qsizetype last = first;
    for (int parts = 0; parts < longestCompound && isHyphen(last + 1) && isWord(last + 2); ++parts)
        last += 2;
    return last + 1;
}

bool AddressReader::isLetterTail(qsizetype index) const {
    if (!isWord(index) || m_tokens.at(index).length != 1)
        return false;
    if (isGlued(index))
        return !isMark(index + 1, u'.') || !isWord(index + 2) || !isGlued(index + 2);
    return continuesLine(index) && endsPart(index + 1) && !isMarkOf(index + 1, u"./'");
}

qsizetype AddressReader::houseNumberEnd(qsizetype index) const {
    constexpr int mostDigits = 5;
    if (digits(index) == 0 || digits(index) > mostDigits || m_tokens.at(index).value == 0)
        return index;
    qsizetype end = index + 1;
    for (int round = 0; round < 4; ++round) {
        const bool isTail = continuesLine(end) && addressWords::isNumberTail(word(end));
        const bool isJoined = isMarkOf(end, u"/-\u2013") && isGlued(end) && isGlued(end + 1);
        const bool isMore = isJoined && (digits(end + 1) > 0 ? digits(end + 1) <= mostDigits
                                                             : word(end + 1).size() == 1);
        if (isTail || isLetterTail(end))
            ++end;
        else if (isMore)
            end += 2;
        else
            break;
    }
    // A word glued to it ("5th", "10px") or more digits ("10:30", "1.5") make it something else.
    const bool isBroken = isGlued(end) && (isWord(end) || isMarkOf(end, u"%:=_@€$£+*\\/"));
    const bool isFraction = isMarkOf(end, u".,") && isGlued(end) && isGlued(end + 1) &&
                            isNumber(end + 1) && digits(end + 1) < 4;
    const bool isTime = isMark(end, u':') && isGlued(end) && !isNumber(end + 1);
    return (isBroken && !isTime) || isFraction ? index : end;
}

bool AddressReader::endsPart(qsizetype index) const {
    return !has(index) || startsLine(index) || isMarkOf(index, u",.;)(-–—|/•·、，。،\"!?:]");
}

bool AddressReader::beginsPart(qsizetype index) const {
    return startsLine(index) || isMarkOf(index - 1, u",;:(-–—|•·\"[>、，،");
}

} // namespace quorvel
