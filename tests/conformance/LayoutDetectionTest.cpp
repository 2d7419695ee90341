#include "conformance/LayoutPhrases.h"
#include "conformance/RealLayouts.h"
#include "paste/layouts/KeyboardLayoutVariants.h"
#include "support/QtPrinting.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// Somebody writes the phrases of a layout while another one is active than was meant.
struct Mistake {
    QStringView phrases;
    QStringView meant;
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
    const auto found = std::find_if(phrases.begin(), phrases.end(),
                                    [&](const Phrases& one) { return one.layout == layout; });
    EXPECT_NE(found, phrases.end());
    return *found;
}

/// How often the answers were right, and what the others were.
struct Tally {
    int asked = 0;
    int sources = 0;
    int firsts = 0;
    QStringList misses;

    void count(const QString& wrong, const KeyboardLayoutReading& reading, const Mistake& mistake,
               const QString& phrase) {
        const bool isSource = reading.sourceLayoutID == mistake.active;
        const bool isFirst =
            !reading.variants.isEmpty() && reading.variants.first().value == phrase;
        ++asked;
        sources += isSource ? 1 : 0;
        firsts += isSource && isFirst ? 1 : 0;
        if (!isSource || !isFirst)
            misses.append(u"%1 (%2 in %3 of %4): from %5, %6"_qs.arg(
                wrong, phrase, mistake.active, mistake.configured, reading.sourceLayoutID,
                reading.variants.isEmpty() ? u"nothing"_qs : reading.variants.first().value));
    }
};

template <typename Texts>
void ask(Tally& tally, const Mistake& mistake, const Texts& texts) {
    const KeyboardLayoutMap meant = realLayouts(mistake.meant.toString()).first();
    const KeyboardLayoutMap active = realLayouts(mistake.active.toString()).first();
    // Somebody who notices may have switched already, or not.
    for (const QStringView activeNow : {mistake.active, mistake.meant}) {
        FakeKeyboardLayouts layouts(realLayouts(mistake.configured.toString()));
        layouts.activate(activeNow.toString());
        const KeyboardLayoutVariants variants(layouts);
        for (const QStringView phrase : texts) {
            const QString wrong = retyped(typed(phrase, meant), active);
            if (wrong != phrase)
                tally.count(wrong, variants.reading(wrong), mistake, phrase.toString());
        }
    }
}

void expectRates(const Tally& tally, double sources, double firsts) {
    EXPECT_GE(tally.sources, sources * tally.asked) << tally.misses.join(u'\n').toStdString();
    EXPECT_GE(tally.firsts, firsts * tally.asked) << tally.misses.join(u'\n').toStdString();
    testing::Test::RecordProperty("asked", tally.asked);
    testing::Test::RecordProperty("sources", tally.sources);
    testing::Test::RecordProperty("firsts", tally.firsts);
}

TEST(LayoutDetection, KnowsWhatWasTypedInTheWrongLayout) {
    Tally tally;
    for (const Mistake& mistake : mistakes)
        ask(tally, mistake, phrasesOf(mistake.phrases).seen);
    EXPECT_GT(tally.asked, 500);
    expectRates(tally, 0.995, 0.99);
}

TEST(LayoutDetection, KnowsPhrasesThatItWasNotMadeFor) {
    Tally tally;
    for (const Mistake& mistake : mistakes)
        ask(tally, mistake, phrasesOf(mistake.phrases).unseen);
    EXPECT_GT(tally.asked, 300);
    expectRates(tally, 0.99, 0.98);
}

/// Neither a source that is wrong nor a target that would be offered as what was meant.
TEST(LayoutDetection, LeavesAloneWhatIsRight) {
    for (const QString& configured :
         {u"us,ru"_qs, u"us,ua,ru"_qs, u"us,ru,gr,il"_qs, u"us,de"_qs, u"us,fr"_qs, u"de,fr"_qs,
          u"us,us(dvorak)"_qs, u"us,de,fr,us(dvorak)"_qs})
        for (const Phrases& one : phrases) {
            if (!configured.split(u',').contains(one.layout))
                continue;
            FakeKeyboardLayouts layouts(realLayouts(configured));
            layouts.activate(one.layout.toString());
            const KeyboardLayoutVariants variants(layouts);
            const KeyboardLayoutMap own = realLayouts(one.layout.toString()).first();
            for (const QStringView phrase : one.seen) {
                const auto reading = variants.reading(phrase.toString());
                const auto likely = std::find_if(
                    reading.variants.begin(), reading.variants.end(), [](const auto& variant) {
                        return variant.likelihood == VariantLikelihood::likely;
                    });
                const auto source = realLayouts(reading.sourceLayoutID).first();
                // Layouts that are alike may stand for each other.
                EXPECT_EQ(retyped(typed(phrase, source), own), phrase)
                    << reading.sourceLayoutID.toStdString() << " of " << configured.toStdString();
                EXPECT_EQ(likely, reading.variants.end())
                    << phrase.toString().toStdString() << " in " << configured.toStdString();
            }
        }
}

} // namespace

} // namespace quorvel
