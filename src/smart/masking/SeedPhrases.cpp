#include "smart/masking/SeedPhrases.h"

#include "smart/masking/CharacterBits.h"

#include <algorithm>

namespace quorvel {

namespace {

constexpr int mostWords = 24;

/// Too frequent or too short for such phrases, which have neither endings nor little words.
constexpr QStringView proseWords[] = {
    u"the",  u"and",  u"for", u"are",   u"was",  u"with",  u"this", u"that",  u"from",  u"you",
    u"your", u"have", u"not", u"but",   u"they", u"were",  u"has",  u"had",   u"his",   u"her",
    u"she",  u"him",  u"our", u"their", u"its",  u"can",   u"will", u"would", u"could", u"been",
    u"der",  u"die",  u"das", u"und",   u"ist",  u"nicht", u"les",  u"des",   u"une",   u"est",
    u"que",  u"los",  u"las", u"por",   u"con",  u"para",  u"per",  u"che",   u"non",   u"een",
    u"het",  u"van",  u"och", u"som",   u"det",  u"jest",  u"nie",
};

struct SeedWords {
    int count = 0;
    int plurals = 0;
    bool isProse = false;
    qsizetype first = 0;
    qsizetype end = 0;
};

bool isBetween(QChar unit) {
    return hasBit(unit, blankBit | digitBit) || QStringView(u".):,;\"'-|>*").contains(unit);
}

SeedWords readWords(QStringView text, qsizetype at) {
    constexpr qsizetype leastLetters = 3;
    constexpr qsizetype mostLetters = 8;
    constexpr qsizetype mostBetween = 8;
    SeedWords words;
    while (words.count <= mostWords) {
        qsizetype start = at;
        while (start < text.size() && start - at < mostBetween && isBetween(text[start]))
            ++start;
        const qsizetype end = endOfBits(text.left(start + mostLetters + 1), start, lowerBit);
        const qsizetype size = end - start;
        if (size < leastLetters || size > mostLetters || hasBit(unitAt(text, end), wordBit))
            break;
        const QStringView word = text.mid(start, size);
        words.first = words.count++ == 0 ? start : words.first;
        words.plurals +=
            word.endsWith(u's') || word.endsWith(u"ed") || word.endsWith(u"ing") ? 1 : 0;
        words.isProse |= std::ranges::find(proseWords, word) != std::end(proseWords);
        at = words.end = end;
    }
    return words;
}

bool isPhrase(const SeedWords& words) {
    constexpr int least = 12;
    constexpr int mostPlurals = 3;
    const bool isCount = words.count >= least && words.count <= mostWords && words.count % 3 == 0;
    return isCount && !words.isProse && words.plurals <= mostPlurals;
}

} // namespace

std::optional<SecretRange> seedWordsAt(QStringView text, qsizetype start) {
    const SeedWords words = readWords(text, start);
    return isPhrase(words) ? std::optional(SecretRange{words.first, words.end - words.first})
                           : std::nullopt;
}

std::optional<SecretRange> loneSeedWords(QStringView text) {
    constexpr qsizetype longest = 300;
    if (text.size() > longest || text.isEmpty() || !hasBit(text[0], lowerBit | digitBit | blankBit))
        return {};
    const SeedWords words = readWords(text, 0);
    const bool isAll = endOfBits(text, words.end, blankBit) == text.size();
    return isAll && isPhrase(words)
               ? std::optional(SecretRange{words.first, words.end - words.first})
               : std::nullopt;
}

} // namespace quorvel
