#include "paste/layouts/LayoutLanguage.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

struct Country {
    QStringView layout; ///< The beginning of its identifier, up to "(".
    QStringView languages;
};

/// Layouts that are called like their language are not listed.
constexpr std::array countries{
    Country{u"us", u"en"},      Country{u"gb", u"en"},       Country{u"au", u"en"},
    Country{u"nz", u"en"},      Country{u"za", u"en"},       Country{u"ie", u"en"},
    Country{u"at", u"de"},      Country{u"ch", u"de fr it"}, Country{u"be", u"fr nl"},
    Country{u"ca", u"fr en"},   Country{u"latam", u"es"},    Country{u"br", u"pt"},
    Country{u"cz", u"cs"},      Country{u"si", u"sl"},       Country{u"hr", u"sr-Latn"},
    Country{u"ba", u"sr-Latn"}, Country{u"me", u"sr-Latn"},  Country{u"rs", u"sr sr-Latn"},
    Country{u"se", u"sv"},      Country{u"dk", u"da"},       Country{u"no", u"nb"},
    Country{u"fi", u"fi sv"},   Country{u"ua", u"uk"},       Country{u"by", u"be"},
    Country{u"md", u"ro"},      Country{u"gr", u"el"},       Country{u"il", u"he"},
    Country{u"ara", u"ar"},     Country{u"iq", u"ar"},       Country{u"sy", u"ar"},
    Country{u"ma", u"ar fr"},   Country{u"dz", u"ar fr"},    Country{u"eg", u"ar"},
    Country{u"ir", u"fa"},      Country{u"af", u"fa"},       Country{u"am", u"hy"},
    Country{u"ge", u"ka"},
};

QStringView languagesOf(QStringView layout) {
    for (const Country& country : countries)
        if (country.layout == layout)
            return country.languages;
    return layout;
}

UnknownLanguage lettersOf(const KeyboardLayoutMap& map) {
    QHash<QChar::Script, int> counts;
    UnknownLanguage most;
    for (auto key = map.strokeToChar.cbegin(); key != map.strokeToChar.cend(); ++key) {
        const QChar character = key.value().at(0);
        if (key.key().modifierKeyState != 0 || !character.isLetter())
            continue;
        const int count = ++counts[character.script()];
        if (count > most.letterCount)
            most = {character.script(), count};
    }
    return most;
}

} // namespace

LayoutLanguage::LayoutLanguage(const KeyboardLayoutMap& map)
    : m_unknown(lettersOf(map)) {
    const auto add = [this](QStringView code) {
        const LetterPairs* language = LetterPairs::of(code);
        if (language && language->script() == m_unknown.script)
            m_languages.append(language);
    };
    const QStringView layout = QStringView(map.id).split(u'(').first();
    for (const QStringView code : languagesOf(layout).split(u' '))
        add(code);
    if (!m_languages.isEmpty())
        return;
    for (const QString& code : LetterPairs::languagesOf(m_unknown.script))
        add(code);
}

bool LayoutLanguage::looksRight(QStringView text, double cost) const {
    return cost < costInBits(text, m_unknown);
}

double LayoutLanguage::cost(QStringView text) const {
    if (m_languages.isEmpty())
        return costInBits(text, m_unknown);
    double least = costInBits(text, *m_languages.first());
    for (const LetterPairs* language : m_languages.mid(1))
        least = std::min(least, costInBits(text, *language));
    return least;
}

} // namespace quorvel
