#include "smart/rules/TextShapes.h"

#include "foundation/CodePoints.h"
#include "smart/rules/Runs.h"
#include "smart/rules/Words.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

/// The words that make code when a blank follows.
constexpr std::array codeKeywords{QStringView(u"func"), QStringView(u"let"), QStringView(u"var"),
                                  QStringView(u"class"), QStringView(u"import")};

bool followsKeyword(QStringView before) {
    return std::any_of(codeKeywords.begin(), codeKeywords.end(),
                       [&](QStringView keyword) { return before.endsWith(keyword); });
}

/// Saves most words the comparison.
bool endsLikeKeyword(QChar last) {
    return last == u'c' || last == u't' || last == u'r' || last == u's';
}

bool isCodeMarkAt(QStringView text, qsizetype i) {
    const QChar next = i + 1 < text.size() ? text[i + 1] : QChar();
    switch (text[i].unicode()) {
    case u'{':
    case u'}':
    case u';':
        return true;
    case u'=':
    case u'/':
        return next == u'>';
    case u'<':
        return next == u'/';
    case u' ':
        return i >= 3 && endsLikeKeyword(text[i - 1]) && followsKeyword(text.first(i));
    default:
        return false;
    }
}

/// What neither begins nor ends a mark of code.
using PlainCharacters = AllBut<u'{', u'}', u';', u'=', u'/', u'<', u' '>;

bool isForbiddenInName(QChar c) {
    return QStringView(u".,;:/\\_#%&*+=[]{}()<>\"@\n").contains(c) || c.isDigit();
}

bool isPunctuation(QChar c) {
    const auto category = c.category();
    return category >= QChar::Punctuation_Connector && category <= QChar::Punctuation_Other;
}

QStringView withoutPunctuationAround(QStringView word) {
    while (!word.isEmpty() && isPunctuation(word.front()))
        word = word.sliced(1);
    while (!word.isEmpty() && isPunctuation(word.back()))
        word.chop(1);
    return word;
}

bool isWrittenLikeNamePart(QStringView word) {
    word = withoutPunctuationAround(word);
    CodePoints characters(word);
    if (word.isEmpty() || !QChar::isUpper(characters.next()))
        return false;
    bool hasLower = false;
    while (characters.hasNext()) {
        const char32_t c = characters.next();
        if (!QChar::isLetter(c) && !QChar::isMark(c) && c != U'-' && c != U'\'')
            return false;
        hasLower = hasLower || QChar::isLower(c);
    }
    return hasLower;
}

} // namespace

bool isLikelySingleValue(QStringView text) {
    constexpr qsizetype fewWords = 4;
    constexpr qsizetype mostWords = 8;
    constexpr qsizetype mostCharacters = 96;
    text = text.trimmed();
    if (text.isEmpty() || text.contains(u'\n'))
        return false;
    const qsizetype count = words(text, mostWords + 1).size();
    return count < fewWords || (count <= mostWords && hasAtMostCharacters(text, mostCharacters));
}

bool looksLikeCode(QStringView text) {
    for (qsizetype i = endOfRun<PlainCharacters>(text, 0); i < text.size();
         i = endOfRun<PlainCharacters>(text, i + 1))
        if (isCodeMarkAt(text, i))
            return true;
    return false;
}

bool isWrittenLikePersonName(QStringView text) {
    constexpr qsizetype mostCharacters = 80;
    constexpr qsizetype fewestWords = 2;
    constexpr qsizetype mostWords = 4;
    text = text.trimmed();
    if (!hasAtMostCharacters(text, mostCharacters))
        return false;
    const auto parts = words(text, mostWords + 1);
    return parts.size() >= fewestWords && parts.size() <= mostWords &&
           std::none_of(text.begin(), text.end(), isForbiddenInName) &&
           std::all_of(parts.begin(), parts.end(), isWrittenLikeNamePart);
}

} // namespace quorvel
