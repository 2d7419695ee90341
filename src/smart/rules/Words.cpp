#include "smart/rules/Words.h"

#include "foundation/Text.h"
#include "smart/rules/Runs.h"

namespace quorvel {

namespace {

bool isSpace(char16_t unit) {
    return unit < asciiEnd ? unit == u' ' || (unit >= u'\t' && unit <= u'\r')
                           : QChar::isSpace(unit);
}

struct WordUnits {
    static bool isPlainly(char16_t unit) { return char16_t(unit - u'!') < asciiEnd - u'!'; }
    static bool contains(char16_t unit) { return !isSpace(unit); }
};

} // namespace

QList<QStringView> words(QStringView text, qsizetype most) {
    QList<QStringView> found;
    const char16_t* units = text.utf16();
    qsizetype position = 0;
    while (position < text.size() && found.size() < most) {
        while (position < text.size() && isSpace(units[position]))
            ++position;
        const qsizetype start = position;
        position = endOfRun<WordUnits>(text, position);
        if (position > start)
            found.append(text.sliced(start, position - start));
    }
    return found;
}

bool hasAtMostCharacters(QStringView text, qsizetype limit) {
    // A character is rarely more than a few units long, so a prefix nearly always decides.
    constexpr qsizetype plenty = 16;
    if (text.size() <= limit)
        return true;
    const QStringView prefix = text.first(std::min(text.size(), (limit + 1) * plenty));
    const qsizetype count = characterCount(prefix);
    if (count > limit + 1 || prefix.size() == text.size())
        return count <= limit;
    return characterCount(text) <= limit;
}

} // namespace quorvel
