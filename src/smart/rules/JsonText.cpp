#include "smart/rules/JsonText.h"

#include "smart/rules/Characters.h"

#include <algorithm>
#include <bitset>

namespace quorvel {

namespace {

/// As deep as the parsers go that such a text is meant for.
constexpr std::size_t deepest = 512;

/// What needs no second look inside a string.
constexpr auto plainInString = [] {
    std::array<bool, asciiEnd> table{};
    for (char16_t c = u' '; c < asciiEnd; ++c)
        table[c] = c != u'"' && c != u'\\';
    return table;
}();

/// Walks over one document; what is open is kept as one bit a level.
class JsonWalk {
public:
    explicit JsonWalk(QStringView text)
        : m_at(text.utf16())
        , m_end(m_at + text.size()) {}

    bool isDocument() {
        skipSpace();
        if (peek() != u'{' && peek() != u'[')
            return false;
        do {
            if (!value())
                return false;
        } while (m_depth > 0);
        skipSpace();
        return m_at == m_end;
    }

private:
    char16_t peek() const { return m_at < m_end ? *m_at : u'\0'; }

    void skipSpace() {
        while (m_at < m_end &&
               (*m_at == u' ' || *m_at == u'\n' || *m_at == u'\r' || *m_at == u'\t'))
            ++m_at;
    }

    bool skip(char16_t unit) {
        if (peek() != unit)
            return false;
        ++m_at;
        return true;
    }

    /// One value, or the opening of one that holds others; behind a whole value, what closes.
    bool value() {
        skipSpace();
        switch (peek()) {
        case u'{':
            return open(true);
        case u'[':
            return open(false);
        case u'"':
            return string() && close();
        case u't':
            return word(u"true") && close();
        case u'f':
            return word(u"false") && close();
        case u'n':
            return word(u"null") && close();
        default:
            return number() && close();
        }
    }

    bool open(bool isObject) {
        ++m_at;
        if (m_depth == deepest)
            return false;
        m_isObject[m_depth++] = isObject;
        skipSpace();
        if (skip(isObject ? u'}' : u']')) {
            --m_depth;
            return close();
        }
        return !isObject || name();
    }

    bool name() {
        skipSpace();
        if (!string())
            return false;
        skipSpace();
        return skip(u':');
    }

    /// After a whole value: closes what ends here, up to the comma before the next value.
    bool close() {
        while (m_depth > 0) {
            const bool isObject = m_isObject[m_depth - 1];
            skipSpace();
            if (skip(u','))
                return !isObject || name();
            if (!skip(isObject ? u'}' : u']'))
                return false;
            --m_depth;
        }
        return true;
    }

    bool word(QStringView expected) {
        const QStringView rest(m_at, m_end - m_at);
        if (!rest.startsWith(expected))
            return false;
        m_at += expected.size();
        return true;
    }

    bool digits() {
        const char16_t* start = m_at;
        while (m_at < m_end && isAsciiDigit(*m_at))
            ++m_at;
        return m_at > start;
    }

    bool number() {
        skip(u'-');
        if (!skip(u'0') && !digits())
            return false;
        if (skip(u'.') && !digits())
            return false;
        if (skip(u'e') || skip(u'E')) {
            if (!skip(u'+'))
                skip(u'-');
            return digits();
        }
        return true;
    }

    bool string() {
        if (!skip(u'"'))
            return false;
        while (m_at < m_end) {
            if (*m_at < asciiEnd && plainInString[*m_at]) {
                ++m_at;
                continue;
            }
            const char16_t unit = *m_at++;
            if (unit == u'"')
                return true;
            if (unit < u' ' || (unit == u'\\' && !escape()) || !isWhole(unit))
                return false;
        }
        return false;
    }

    bool escape() {
        if (m_at == m_end)
            return false;
        const char16_t unit = *m_at++;
        if (unit != u'u')
            return QStringView(u"\"\\/bfnrt").contains(QChar(unit));
        char16_t value = 0;
        if (!hexDigits(value))
            return false;
        if (!QChar::isHighSurrogate(value))
            return !QChar::isLowSurrogate(value);
        return skip(u'\\') && skip(u'u') && hexDigits(value) && QChar::isLowSurrogate(value);
    }

    bool hexDigits(char16_t& value) {
        constexpr int digits = 4;
        if (m_end - m_at < digits)
            return false;
        bool isNumber = false;
        value = char16_t(QStringView(m_at, digits).toUShort(&isNumber, 16));
        const bool areDigits =
            std::all_of(m_at, m_at + digits, [](char16_t unit) { return isAsciiHexDigit(unit); });
        m_at += digits;
        return isNumber && areDigits;
    }

    /// A surrogate without its partner cannot be encoded, so such a text is no document.
    bool isWhole(char16_t unit) {
        if (!QChar::isSurrogate(unit))
            return true;
        if (!QChar::isHighSurrogate(unit) || !QChar::isLowSurrogate(peek()))
            return false;
        ++m_at;
        return true;
    }

    const char16_t* m_at;
    const char16_t* m_end;
    std::bitset<deepest> m_isObject;
    std::size_t m_depth = 0;
};

} // namespace

bool isJsonDocument(QStringView text) {
    return JsonWalk(text).isDocument();
}

} // namespace quorvel
