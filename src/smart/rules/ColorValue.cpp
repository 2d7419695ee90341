#include "smart/rules/ColorValue.h"

#include "smart/rules/Characters.h"

#include <algorithm>
#include <array>

namespace quorvel {

namespace {

int hexValue(QChar digit) {
    return digit.isDigit() ? digit.unicode() - u'0' : (digit.unicode() | 0x20) - u'a' + 10;
}

ColorValue fromHexDigits(QStringView digits) {
    const bool isShort = digits.size() <= 4;
    const auto channel = [&](qsizetype index) {
        const int high = hexValue(digits[isShort ? index : index * 2]);
        const int low = hexValue(digits[isShort ? index : index * 2 + 1]);
        return high * 16 + low;
    };
    const bool hasAlpha = digits.size() % 4 == 0;
    return {channel(0), channel(1), channel(2), hasAlpha ? channel(3) / 255.0 : 1.0};
}

std::optional<ColorValue> hexColor(QStringView text) {
    for (qsizetype hash = text.indexOf(u'#'); hash >= 0; hash = text.indexOf(u'#', hash + 1)) {
        qsizetype end = hash + 1;
        while (end < text.size() && end - hash <= 9 && isAsciiHexDigit(text[end]))
            ++end;
        const qsizetype digits = end - hash - 1;
        const bool isColor = digits == 3 || digits == 4 || digits == 6 || digits == 8;
        if (isColor && isWordBoundary(text, end))
            return fromHexDigits(text.sliced(hash + 1, digits));
    }
    return std::nullopt;
}

/// Reads the arguments of one function, each after optional blanks.
class Arguments {
public:
    Arguments(QStringView text, qsizetype position)
        : m_text(text)
        , m_position(position) {}

    std::optional<int> channel() {
        skipSpace();
        int value = 0;
        int digits = 0;
        for (; digits < 3 && isDecimalDigit(peek()); ++digits)
            value = value * 10 + m_text[m_position++].digitValue();
        return digits > 0 ? std::optional(std::min(value, 255)) : std::nullopt;
    }

    /// [01](?:\.\d+)?|\.\d+
    std::optional<double> alpha() {
        skipSpace();
        const qsizetype start = m_position;
        const bool hasUnit = peek() == u'0' || peek() == u'1';
        if (hasUnit)
            ++m_position;
        if (peek() == u'.') {
            const qsizetype dot = m_position++;
            while (isDecimalDigit(peek()))
                ++m_position;
            if (m_position == dot + 1)
                m_position = dot;
        }
        if (m_position == start)
            return std::nullopt;
        return std::min(number(m_text.sliced(start, m_position - start)), 1.0);
    }

    bool skip(QChar mark) {
        skipSpace();
        if (peek() != mark)
            return false;
        ++m_position;
        return true;
    }

private:
    QChar peek() const { return m_position < m_text.size() ? m_text[m_position] : QChar(); }

    void skipSpace() {
        while (m_position < m_text.size() && isPatternSpace(m_text[m_position]))
            ++m_position;
    }

    static double number(QStringView written) {
        double value = 0;
        double place = 1;
        bool isFraction = false;
        for (const QChar c : written) {
            if (c == u'.') {
                isFraction = true;
                continue;
            }
            place = isFraction ? place / 10 : 1;
            value = isFraction ? value + c.digitValue() * place : c.digitValue();
        }
        return value;
    }

    QStringView m_text;
    qsizetype m_position;
};

/// What follows "rgb(" or "rgba(".
std::optional<ColorValue> colorOfArguments(QStringView text, qsizetype position) {
    Arguments arguments(text, position);
    std::array<int, 3> channels{};
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const auto channel = arguments.channel();
        if (!channel || (i + 1 < channels.size() && !arguments.skip(u',')))
            return std::nullopt;
        channels[i] = *channel;
    }
    ColorValue color{channels[0], channels[1], channels[2], 1.0};
    if (arguments.skip(u',')) {
        const auto alpha = arguments.alpha();
        if (!alpha)
            return std::nullopt;
        color.alpha = *alpha;
    }
    return arguments.skip(u')') ? std::optional(color) : std::nullopt;
}

/// Where "rgb" or "rgba" that ends at `end` begins; -1 when neither does.
qsizetype startOfFunction(QStringView text, qsizetype end) {
    for (const QStringView name : {QStringView(u"rgb"), QStringView(u"rgba")})
        if (text.first(end).endsWith(name, Qt::CaseInsensitive))
            return end - name.size();
    return -1;
}

std::optional<ColorValue> functionalColor(QStringView text) {
    for (qsizetype open = text.indexOf(u'('); open >= 0; open = text.indexOf(u'(', open + 1)) {
        const qsizetype start = startOfFunction(text, open);
        if (start < 0 || !isWordBoundary(text, start))
            continue;
        if (const auto color = colorOfArguments(text, open + 1))
            return color;
    }
    return std::nullopt;
}

} // namespace

std::optional<ColorValue> colorValue(QStringView text) {
    const auto color = hexColor(text);
    return color ? color : functionalColor(text);
}

} // namespace quorvel
