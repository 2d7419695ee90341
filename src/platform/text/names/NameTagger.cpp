#include "platform/text/names/NameTagger.h"

#include "foundation/Folding.h"
#include "platform/text/names/NoNameWords.h"
#include "platform/text/names/WordList.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

struct Lists {
    WordList given{u"given"};
    WordList family{u"family"};
    WordList places{u"places"};
    WordList words{u"words"};
};

const Lists& lists() {
    static const Lists opened;
    return opened;
}

/// What stands inside names and is none by itself.
constexpr std::array particles{
    QStringView(u"van"),   QStringView(u"von"), QStringView(u"de"),   QStringView(u"del"),
    QStringView(u"della"), QStringView(u"di"),  QStringView(u"da"),   QStringView(u"dos"),
    QStringView(u"das"),   QStringView(u"der"), QStringView(u"den"),  QStringView(u"ten"),
    QStringView(u"ter"),   QStringView(u"la"),  QStringView(u"le"),   QStringView(u"el"),
    QStringView(u"al"),    QStringView(u"bin"), QStringView(u"bint"), QStringView(u"ibn"),
    QStringView(u"ben"),   QStringView(u"abu"), QStringView(u"af"),   QStringView(u"av"),
    QStringView(u"zu"),    QStringView(u"y"),   QStringView(u"e"),    QStringView(u"ni"),
    QStringView(u"nic"),   QStringView(u"ap"),  QStringView(u"do"),   QStringView(u"du"),
    QStringView(u"фон"),   QStringView(u"де"),  QStringView(u"бин"),  QStringView(u"ибн"),
    QStringView(u"zur"),   QStringView(u"zum"), QStringView(u"vom"),  QStringView(u"lo"),
    QStringView(u"dal"),   QStringView(u"los"), QStringView(u"las"),  QStringView(u"mac"),
    QStringView(u"ua"),    QStringView(u"het"), QStringView(u"op"),   QStringView(u"degli"),
};

/// How people are addressed; what follows is a name. A blank around each.
constexpr QStringView titles =
    u" mr mrs ms miss mx dr prof sir dame lady lord rev herr frau mme mlle monsieur madame"
    u" mademoiselle don dona sr sra srta senor senora senhor senhora sig signor signora signore"
    u" dott dottor mevrouw meneer heer fru pan pani shri smt sheikh shaykh hajji haji ustad datuk"
    u" dato tuan puan dipl господин госпожа пан пани кир κυριοσ κυρια ";

/// What follows a family name and belongs to nobody's name alone.
constexpr QStringView suffixes = u" jr sr junior senior phd esq filho neto junior ";

/// Family names of East Asia that are words of English too; they stand first.
constexpr QStringView shortFamilies =
    u" lee tan park lim kim song long young min han hung chin sun king bush bang son moon jean"
    u" yang wang chang ding dong pan pang kong chow lam ho fan gong cheek ";

/// How family names end, by culture; a blank around each.
constexpr QStringView strongEndings =
    u" ov yev vic lic jic zic ovich evich ovna evna enko chuk chenko ovski ovsky owski ewski inski "
    u"insky skaya wicz czyk"
    u" ova escu eanu opoulos opoulou poulou iadis oglu shvili adze idze yan sdottir auskas aitis"
    u" aite iene aityte dottir ardson arson zadeh wala yama mura guchi moto singhe wardena sekara "
    u"ratne chaiyasit"
    u" енко ович евич овна евна чук дзе швили скии ская ова ева ов ев ин ина ян ић ич οπουλοσ"
    u" οπουλου ακησ ιδησ ιδου ακη αδησ յան ";

/// Endings that other words have too.
constexpr QStringView weakEndings =
    u" ski sky ska eva ian sson son sen nen ic vic akis idis ouli pour kawa mann man berg stein ton"
    u" ley field worth wood ham shaw bury well ford wick lock house hill ey stra sma ema inga ini"
    u" elli ello etti ucci otti eau ault aud oux ez aes eira inho egi arri etxea sawat wong swamy"
    u" murthy anathan bek bai бек баи улы кызы ук юк ых их ";

/// What one word says. Scores are chosen so that a given and a family name together pass, also when
/// one of them is an ordinary word, but an ordinary word beside a lone given name does not.
struct Evidence {
    double given = 0;
    double family = 0;
    bool isParticle = false;
    bool isKnown = false;
};

constexpr double listed = 2.0;
constexpr double listedButOrdinary = 1.2;
constexpr double listedButPlace = 1.5;
constexpr double strongEnding = 1.6;
constexpr double weakEnding = 1.3;
constexpr double unknown = 0.7;
constexpr double ordinary = 0.0;
constexpr double place = 0.25;
constexpr double enough = 2.2;
constexpr double enoughWithTitle = 1.4;

/// Looks for a word in words that have a blank around each.
bool isOneOf(QStringView word, QStringView words) {
    for (qsizetype at = words.indexOf(word); at > 0; at = words.indexOf(word, at + 1))
        if (words[at - 1] == u' ' && words[at + word.size()] == u' ')
            return true;
    return false;
}

bool endsWithOneOf(QStringView word, QStringView endings) {
    constexpr qsizetype fewestBefore = 3;
    for (const QStringView ending : endings.tokenize(u' ', Qt::SkipEmptyParts))
        if (word.size() >= ending.size() + fewestBefore && word.endsWith(ending))
            return true;
    return false;
}

double endingScore(QStringView word) {
    const bool hasPrefix =
        word.startsWith(u"o'") || word.startsWith(u"mc") || word.startsWith(u"d'");
    if ((hasPrefix && word.size() > 4) || endsWithOneOf(word, strongEndings))
        return strongEnding;
    return endsWithOneOf(word, weakEndings) ? weakEnding : unknown;
}

double scoreOf(bool isListed, bool isOrdinary, bool isPlace, double otherwise) {
    if (isListed)
        return isOrdinary ? listedButOrdinary : isPlace ? listedButPlace : listed;
    if (isOrdinary)
        return ordinary;
    return isPlace ? place : otherwise;
}

Evidence evidenceOf(const QString& word) {
    const QByteArray utf8 = word.toUtf8();
    Evidence evidence;
    evidence.isParticle = std::find(particles.begin(), particles.end(), word) != particles.end();
    const bool isGiven = lists().given.contains(utf8);
    const bool isFamily = lists().family.contains(utf8);
    const bool isOrdinary = lists().words.contains(utf8);
    const bool isPlace = lists().places.contains(utf8);
    evidence.given = scoreOf(isGiven, isOrdinary, isPlace, unknown);
    const double byEnding = isFamily || isOrdinary ? unknown : endingScore(word);
    evidence.family = scoreOf(isFamily, isOrdinary, isPlace && byEnding < strongEnding, byEnding);
    evidence.isKnown = isGiven || isFamily || byEnding > unknown;
    return evidence;
}

/// The parts of "Jean-Paul" are words of their own; the best part speaks for all.
Evidence evidenceOfHyphenated(const QString& word) {
    const auto parts = word.split(u'-', Qt::SkipEmptyParts);
    if (parts.size() < 2)
        return evidenceOf(word);
    Evidence best = evidenceOf(parts.constFirst());
    for (const QString& part : parts.mid(1)) {
        const Evidence evidence = evidenceOf(part);
        best.given = std::max(best.given, evidence.given);
        best.family = std::max(best.family, evidence.family);
        best.isKnown = best.isKnown || evidence.isKnown;
    }
    return best;
}

/// The best pair of a given and a family name, one of them at the beginning; what stands between
/// counts when it speaks against a name.
double scoreOf(const QList<Evidence>& words) {
    constexpr double turnedRound = 0.3;
    double between = 0;
    for (qsizetype i = 1; i + 1 < words.size(); ++i)
        if (!words[i].isParticle)
            between += std::min(0.0, std::max(words[i].given, words[i].family) - unknown);
    const Evidence& first = words.constFirst();
    const Evidence& last = words.constLast();
    return between + std::max(first.given + last.family, first.family + last.given - turnedRound);
}

/// Letters that no mark was put on, as they are written where the keyboard lacks them; the lists
/// are written so too.
QString plain(const QString& word) {
    constexpr QStringView letters = u"ðþøłđæœıə";
    constexpr std::array<QLatin1StringView, 9> replacements{
        QLatin1StringView("d"),  QLatin1StringView("th"), QLatin1StringView("o"),
        QLatin1StringView("l"),  QLatin1StringView("d"),  QLatin1StringView("ae"),
        QLatin1StringView("oe"), QLatin1StringView("i"),  QLatin1StringView("e")};
    QString result;
    result.reserve(word.size());
    for (const QChar c : word) {
        const qsizetype at = c.unicode() < 0x80 ? -1 : letters.indexOf(c);
        if (at < 0)
            result += c.isSpace() ? QChar(u' ') : c;
        else
            result += replacements[std::size_t(at)];
    }
    return result;
}

QStringView withoutMarksAround(QStringView word) {
    while (!word.isEmpty() && !word.back().isLetter())
        word.chop(1);
    while (!word.isEmpty() && !word.front().isLetter())
        word = word.sliced(1);
    return word;
}

QStringList foldedWords(const QString& text) {
    QStringList words;
    const QString all = plain(folded(text));
    for (const QStringView part : QStringView(all).tokenize(u' ', Qt::SkipEmptyParts)) {
        const QStringView word = withoutMarksAround(part);
        if (!word.isEmpty())
            words.append(word.toString());
    }
    return words;
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
        evidence.front().family = listed;
    const bool isAnyKnown = std::any_of(evidence.begin(), evidence.end(),
                                        [](const Evidence& word) { return word.isKnown; });
    const double needed = address == Address::byTitle ? enoughWithTitle : enough;
    return isAnyKnown && scoreOf(evidence) - ambiguous >= needed;
}

/// "Mrs Doubtfire": any word that means nothing else.
bool isNameBehindTitle(const QString& word) {
    const Evidence evidence = evidenceOfHyphenated(word);
    return std::max(evidence.given, evidence.family) >= unknown && !isNoNameWord(word);
}

} // namespace

bool NameTagger::hasPersonalName(const QString& text) const {
    QStringList words = foldedWords(text);
    if (words.size() < 2 || lists().places.contains(words.join(u' ').toUtf8()))
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
