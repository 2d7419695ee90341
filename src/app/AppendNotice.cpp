#include "app/AppendNotice.h"

#include "foundation/Text.h"

#include <QLocale>

namespace quorvel {

namespace {

using Outcome = SelectedTextResult::Outcome;

struct Words {
    Outcome outcome;
    QStringView symbol;
    QStringView title;
    QStringView detail; ///< Empty for none.
};

constexpr std::array words{
    Words{Outcome::taken, u"text.append", u"appendCopy.added", u"appendCopy.counts.format"},
    Words{Outcome::nothingSelected, u"exclamationmark.triangle", u"appendCopy.nothingSelected",
          u"appendCopy.nothingSelected.advice"},
    Words{Outcome::focusElsewhere, u"exclamationmark.triangle", u"appendCopy.focusElsewhere", {}},
    Words{Outcome::unavailable, u"exclamationmark.triangle", u"appendCopy.unavailable",
          u"appendCopy.unavailable.reason"},
};

} // namespace

Notice appendNotice(const AppendResult& result, const StringTable& strings) {
    const auto said = std::find_if(words.begin(), words.end(), [&](const Words& candidate) {
        return candidate.outcome == result.outcome;
    });
    Notice notice{said->symbol.toString(), strings.text(said->title.toString()), {}};
    if (!said->detail.isEmpty())
        notice.detail = strings.text(said->detail.toString());
    if (result.outcome == Outcome::taken) {
        const QLocale locale;
        notice.detail = notice.detail.arg(locale.toString(result.whole.count(u'\n') + 1),
                                          locale.toString(characterCount(result.whole)));
    }
    return notice;
}

} // namespace quorvel
