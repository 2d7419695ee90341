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
};

/// How family names end, by culture; a blank around each.
constexpr QStringView strongEndings =
    u" ovich evich ovna evna enko chuk chenko ovski ovsky owski ewski inski insky skaya wicz czyk"
    u" ova escu eanu opoulos opoulou poulou iadis oglu shvili adze idze yan sdottir auskas aitis"
    u" aite iene aityte zadeh wala yama mura guchi moto singhe wardena sekara ratne chaiyasit"
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
constexpr double place = 0.0;
constexpr double enough = 2.2;

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

QStringList foldedWords(const QString& text) {
    return folded(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

bool NameTagger::hasPersonalName(const QString& text) const {
    const QStringList words = foldedWords(text);
    if (words.size() < 2 || lists().places.contains(words.join(u' ').toUtf8()))
        return false;
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
    const bool isAnyKnown = std::any_of(evidence.begin(), evidence.end(),
                                        [](const Evidence& word) { return word.isKnown; });
    return isAnyKnown && scoreOf(evidence) - ambiguous >= enough;
}

} // namespace quorvel
