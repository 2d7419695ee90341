#include "conformance/LayoutPhrases.h"
#include "conformance/RealLayouts.h"
#include "paste/layouts/KeyboardLayoutVariants.h"
#include "support/QtPrinting.h"

#include <gtest/gtest.h>

#include <iostream>

namespace quorvel {

namespace {

/// Somebody means to write in the layout of the phrases while another is active.
struct Mistake {
    QStringView written; ///< The layout of the phrases, as in their table.
    QStringView meant;   ///< The layout that should have been active.
    QStringView active;
    QStringView configured;
};

constexpr std::array mistakes{
    Mistake{u"ru", u"ru", u"us", u"us,ru"},
    Mistake{u"us", u"us", u"ru", u"us,ru"},
    Mistake{u"gr", u"gr", u"us", u"us,gr"},
    Mistake{u"us", u"us", u"gr", u"us,gr"},
    Mistake{u"il", u"il", u"us", u"us,il"},
    Mistake{u"us", u"us", u"il", u"us,il"},
    Mistake{u"ua", u"ua", u"us", u"us,ua,ru"},
    Mistake{u"ua", u"ua", u"ru", u"us,ua,ru"},
    Mistake{u"ru", u"ru", u"ua", u"us,ua,ru"},
    Mistake{u"us", u"us", u"ua", u"us,ua,ru"},
    Mistake{u"de", u"de", u"us", u"us,de"},
    Mistake{u"us", u"us", u"de", u"us,de"},
    Mistake{u"fr", u"fr", u"us", u"us,fr"},
    Mistake{u"us", u"us", u"fr", u"us,fr"},
    Mistake{u"fr", u"fr", u"de", u"de,fr"},
    Mistake{u"de", u"de", u"fr", u"de,fr"},
    Mistake{u"us", u"us(dvorak)", u"us", u"us,us(dvorak)"},
    Mistake{u"us", u"us", u"us(dvorak)", u"us,us(dvorak)"},
    Mistake{u"ru", u"ru", u"gr", u"us,ru,gr,il"},
    Mistake{u"il", u"il", u"us", u"us,ru,gr,il"},
    Mistake{u"us", u"us", u"ru", u"us,ru,gr,il"},
    Mistake{u"de", u"de", u"us", u"us,de,fr,us(dvorak)"},
    Mistake{u"fr", u"fr", u"us", u"us,de,fr,us(dvorak)"},
    Mistake{u"us", u"us", u"us(dvorak)", u"us,de,fr,us(dvorak)"},
};

const Phrases& phrasesOf(QStringView layout) {
    for (const Phrases& candidate : phrases)
        if (candidate.layout == layout)
            return candidate;
    throw std::runtime_error("no phrases");
}

TEST(LayoutDetection, KnowsWhatWasTypedInTheWrongLayout) {
    int all=0, src=0, first=0, noSource=0;
    for (const auto& [written, meant, active, configured] : mistakes) {
        int n=0,s=0,f=0;
        QString misses;
        const auto maps = realLayouts(configured.toString());
        for (const QStringView activeNow : {active, meant}) {
        FakeKeyboardLayouts layouts(maps);
        layouts.choose(activeNow.toString());
        const KeyboardLayoutVariants variants(layouts);
        const auto m = realLayouts(meant.toString()).first();
        const auto a = realLayouts(active.toString()).first();
        for (const QStringView phrase : phrasesOf(written).texts) {
            const QString wrong = retyped(typed(phrase, m), a);
            if (wrong == phrase) continue;
            const auto r = variants.reading(wrong);
            ++n;
            const bool okS = r.sourceLayoutID == active;
            const bool okF = okS && !r.variants.isEmpty() && r.variants.first().value == phrase && r.variants.first().likelihood == VariantLikelihood::likely;
            s += okS; f += okF;
            if (!okF) misses += u"\n    %1 -> %2: %3 %4"_qs.arg(phrase, wrong, r.sourceLayoutID, r.variants.isEmpty() ? QString() : r.variants.first().value);
        }}
        all+=n; src+=s; first+=f;
        std::cout << written.toString().toStdString() << " meant " << meant.toString().toStdString() << " typed in " << active.toString().toStdString() << " of " << configured.toString().toStdString() << ": source " << s << "/" << n << " first " << f << "/" << n << misses.toStdString() << "\n";
    }
    std::cout << "all " << src << " " << first << " of " << all << "\n";
}

TEST(LayoutDetection, RightTexts) {
    for (const QStringView configured : {u"us,ru", u"us,ru,gr,il", u"us,ua,ru", u"us,de,fr,us(dvorak)", u"us,de", u"us,fr", u"us,us(dvorak)", u"us,gb,de,ch"}) {
        const auto maps = realLayouts(configured.toString());
        for (const auto& map : maps) for (const auto& active : maps) {
            if (map.id == u"us(dvorak)") continue;
            bool have=false; for (const auto& p : phrases) have |= p.layout == map.id;
            if (!have) continue;
            FakeKeyboardLayouts layouts(maps);
            layouts.choose(active.id);
            const KeyboardLayoutVariants variants(layouts);
            for (const QStringView phrase : phrasesOf(map.id).texts) {
                const auto r = variants.reading(phrase.toString());
                QString offered;
                for (const auto& v : r.variants) if (v.likelihood == VariantLikelihood::likely) offered += v.targetLayoutID + u'=' + v.value + u' ';
                if (!offered.isEmpty()) std::cout << configured.toString().toStdString() << " active " << active.id.toStdString() << ": " << phrase.toString().toStdString() << " from " << r.sourceLayoutID.toStdString() << ": " << offered.toStdString() << "\n";
            }
        }
    }
}

} // namespace

} // namespace quorvel
