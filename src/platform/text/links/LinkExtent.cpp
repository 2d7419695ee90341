#include "platform/text/links/LinkExtent.h"

#include <array>

namespace quorvel {

namespace {

constexpr auto asciiEnds = [] {
    std::array<bool, 128> table{};
    for (std::size_t c = 0; c <= ' '; ++c)
        table[c] = true;
    for (const char16_t c : {u'<', u'>', u'"', u'\\', u'^', u'`', u'|', u'\x7f'})
        table[c] = true;
    return table;
}();

bool isForeignBracketOrQuote(QChar c) {
    switch (c.category()) {
    case QChar::Punctuation_Open:
    case QChar::Punctuation_Close:
    case QChar::Punctuation_InitialQuote:
    case QChar::Punctuation_FinalQuote:
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Control:
    case QChar::Other_Format:
        return true;
    default:
        // The full stops and commas of East Asia and Arabic end a clause, not a link.
        return QStringView(u"。、，．！？：；،؛؟।…・").contains(c);
    }
}

bool isTrailingPunctuation(QChar c) {
    return QStringView(u".,;:!?'*~").contains(c);
}

/// How many of each bracket a link has, kept while its end is cut back.
class Brackets {
public:
    explicit Brackets(QStringView link) {
        for (const QChar c : link)
            count(c, 1);
    }

    bool isUnopened(QChar c) const {
        const qsizetype index = closing.indexOf(c);
        return index >= 0 && m_closing[std::size_t(index)] > m_opening[std::size_t(index)];
    }

    void cut(QChar c) { count(c, -1); }

    static bool opens(QChar c) { return opening.contains(c); }

private:
    static constexpr QStringView opening = u"([{";
    static constexpr QStringView closing = u")]}";

    void count(QChar c, int by) {
        if (const qsizetype index = opening.indexOf(c); index >= 0)
            m_opening[std::size_t(index)] += by;
        else if (const qsizetype closed = closing.indexOf(c); closed >= 0)
            m_closing[std::size_t(closed)] += by;
    }

    std::array<int, 3> m_opening{};
    std::array<int, 3> m_closing{};
};

/// Where the particle of a Japanese sentence follows an address of ASCII.
bool isHiragana(QChar c) {
    return c >= QChar(0x3041) && c <= QChar(0x309F);
}

/// Where another link begins behind a separator: "https://a.org,https://b.org".
bool startsNextLink(QStringView text, qsizetype position) {
    return (text[position] == u',' || text[position] == u';') &&
           text.sliced(position + 1).startsWith(u"http");
}

} // namespace

bool endsLink(QChar c) {
    const char16_t u = c.unicode();
    return u < asciiEnds.size() ? asciiEnds[u] : isForeignBracketOrQuote(c);
}

qsizetype endOfLink(QStringView text, qsizetype start, qsizetype limit) {
    qsizetype end = start;
    bool isAscii = true;
    for (; end < limit; ++end) {
        const QChar c = text[end];
        if (endsLink(c) || startsNextLink(text, end) || (isAscii && isHiragana(c)))
            break;
        isAscii = isAscii && c.unicode() < 0x80;
    }
    Brackets brackets(text.sliced(start, end - start));
    while (end > start) {
        const QChar last = text[end - 1];
        if (!isTrailingPunctuation(last) && !brackets.isUnopened(last) && !Brackets::opens(last))
            break;
        brackets.cut(last);
        --end;
    }
    return end;
}

} // namespace quorvel
