#include "platform/text/names/NameTagger.h"

#include "platform/text/names/NameEvidence.h"
#include "platform/text/names/NameWords.h"
#include "platform/text/names/NoNameWords.h"

#include <QStringList>

#include <algorithm>

namespace quorvel {

namespace {

/// How people are addressed; what follows is a name. A blank around each.
constexpr QStringView titles =
    u" mr mrs ms miss mx dr prof sir dame lady lord rev herr frau mme mlle monsieur madame"
    u" mademoiselle don dona sr sra srta senor senora senhor senhora sig signor signora signore"
    u" dott dottor mevrouw meneer heer fru pan pani shri smt sheikh shaykh hajji haji ustad datuk"
    u" dato tuan puan dipl господин госпожа пан пани кир κυριοσ κυρια ";

/// What follows a family name and belongs to nobody's name alone.
constexpr QStringView suffixes = u" jr sr junior senior phd esq filho neto ";

/// Family names of East Asia that are words of English too; they stand first.
constexpr QStringView shortFamilies =
    u" lee tan park lim kim han wang chang yang pan pang chow lam ho fan gong ";

constexpr double enough = 2.2;
constexpr double enoughWithTitle = 1.4;

/// Looks for a word in words that have a blank around each.
bool isOneOf(QStringView word, QStringView words) {
    for (qsizetype at = words.indexOf(word); at > 0; at = words.indexOf(word, at + 1))
        if (words[at - 1] == u' ' && words[at + word.size()] == u' ')
            return true;
    return false;
}

/// The best pair of a given and a family name, one of them at the beginning; what stands between
/// counts when it speaks against a name.
double scoreOf(const QList<Evidence>& words) {
    constexpr double turnedRound = 0.3;
    double between = 0;
    for (qsizetype i = 1; i + 1 < words.size(); ++i)
        if (!words[i].isParticle)
            between += std::min(0.0, std::max(words[i].given, words[i].family) - unknownScore);
    const Evidence& first = words.constFirst();
    const Evidence& last = words.constLast();
    return between + std::max(first.given + last.family, first.family + last.given - turnedRound);
}

/// "Tan Siew Hoon", "Park Ji-Hoon": the family name is the first word, whatever else it means.
bool beginsWithShortFamily(const QStringList& words) {
    return words.size() <= 3 && isOneOf(words.constFirst(), shortFamilies);
}

enum class Address { none, byTitle };

bool isName(const QStringList& words, Address address) {
    QList<Evidence> evidence;
    int ambiguous = 0; // words that are names and more often something else
    for (qsizetype i = 0; i < words.size(); ++i) {
        evidence.append(evidenceOfHyphenated(words[i]));
        const bool isInside = i > 0 && i + 1 < words.size();
        const bool mayBeParticle = isInside && evidence.constLast().isParticle;
        if (mayBeParticle || !isNoNameWord(words[i]))
            continue;
        const bool isAlsoName = evidence.constLast().isKnown && !isInside;
        if (!isAlsoName)
            return false;
        ++ambiguous;
    }
    if (beginsWithShortFamily(words))
        evidence.front().family = listedScore;
    const bool isAnyKnown = std::any_of(evidence.begin(), evidence.end(),
                                        [](const Evidence& word) { return word.isKnown; });
    const double needed = address == Address::byTitle ? enoughWithTitle : enough;
    return isAnyKnown && scoreOf(evidence) - ambiguous >= needed;
}

/// "Mrs Doubtfire": any word that means nothing else.
bool isNameBehindTitle(const QString& word) {
    const Evidence evidence = evidenceOfHyphenated(word);
    return std::max(evidence.given, evidence.family) >= unknownScore && !isNoNameWord(word);
}

} // namespace

bool NameTagger::hasPersonalName(const QString& text) const {
    QStringList words = foldedWords(text);
    if (words.size() < 2 || isNamedPlace(words.join(u' ')))
        return false;
    const bool hasTitle = isOneOf(words.constFirst(), titles);
    if (hasTitle)
        words.removeFirst();
    if (words.size() > 2 && isOneOf(words.constLast(), suffixes))
        words.removeLast();
    if (words.size() == 1)
        return isNameBehindTitle(words.constFirst());
    return isName(words, hasTitle ? Address::byTitle : Address::none);
}

} // namespace quorvel
