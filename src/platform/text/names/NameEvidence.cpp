#include "platform/text/names/NameEvidence.h"

#include "platform/text/names/WordList.h"

#include <QStringList>
#include <QStringTokenizer>

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

constexpr double listedButOrdinary = 1.2;
constexpr double listedButPlace = 1.5;
constexpr double strongEnding = 1.6;
constexpr double weakEnding = 1.3;
constexpr double ordinary = 0.0;
constexpr double place = 0.25;

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
    return endsWithOneOf(word, weakEndings) ? weakEnding : unknownScore;
}

double scoreOf(bool isListed, bool isOrdinary, bool isPlace, double otherwise) {
    if (isListed)
        return isOrdinary ? listedButOrdinary : isPlace ? listedButPlace : listedScore;
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
    evidence.given = scoreOf(isGiven, isOrdinary, isPlace, unknownScore);
    const double byEnding = isFamily || isOrdinary ? unknownScore : endingScore(word);
    evidence.family = scoreOf(isFamily, isOrdinary, isPlace && byEnding < strongEnding, byEnding);
    evidence.isKnown = isGiven || isFamily || byEnding > unknownScore;
    return evidence;
}

} // namespace

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

bool isNamedPlace(const QString& words) {
    return lists().places.contains(words.toUtf8());
}

} // namespace quorvel
