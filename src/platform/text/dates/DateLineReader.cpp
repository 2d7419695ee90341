#include "platform/text/dates/DateLine.h"

#include "foundation/Folding.h"

namespace quorvel {

namespace {

/// Longer lines are read in pieces of this many.
constexpr int mostLexemes = 4096;

/// A word that can begin a date without any number.
constexpr RoleMask starters =
    maskOf(Role::month, Role::weekday, Role::dayName, Role::which, Role::whichAfter, Role::ago,
           Role::agoLead, Role::inLead, Role::edge, Role::noon, Role::eastWeek, Role::era,
           Role::phraseStart);

bool isHangul(QChar c) {
    return c.unicode() >= 0xAC00 && c.unicode() <= 0xD7A3;
}

bool isEastern(QChar c) {
    return c.unicode() >= 0x3040 && c.unicode() <= 0xD7A3;
}

char16_t plainMark(char16_t mark) {
    if (mark >= 0xFF01 && mark <= 0xFF5E)
        mark = char16_t(mark - 0xFEE0);
    switch (mark) {
    case 0x2010:
    case 0x2011:
        return u'-';
    case 0x2012:
    case 0x2015:
    case 0x2212:
        return u'–';
    case 0x301C:
    case 0x223C:
        return u'~';
    case 0x3001:
        return u',';
    default:
        return mark;
    }
}

int easternDigit(QChar c) {
    constexpr QStringView digits = u"〇一二三四五六七八九十";
    const auto found = digits.indexOf(c);
    return c == u'零' ? 0 : int(found);
}

/// 十二 is 12, 二十三 is 23, 二〇二四 is 2024.
int easternNumber(QStringView written) {
    int value = 0;
    for (const QChar c : written) {
        const int digit = easternDigit(c);
        const bool isTen = digit == 10;
        const bool followsTen = value > 0 && value % 10 == 0 && written.contains(u'十');
        if (isTen)
            value = std::max(value, 1) * 10;
        else
            value = followsTen ? value + digit : value * 10 + digit;
    }
    return value;
}

} // namespace

qsizetype DateLine::read(qsizetype first) {
    m_lexemes.clear();
    m_isPromising = false;
    m_isInAddress = false;
    qsizetype next = first;
    for (; next < m_tokens.size() && size() < mostLexemes; ++next) {
        const Token& token = m_tokens.at(next);
        if (next > first && token.afterLine)
            break;
        readWord(token, next);
    }
    return next;
}

void DateLine::readWord(const Token& token, qsizetype index) {
    if (token.afterSpace)
        m_isInAddress = false;
    const QStringView written = m_tokens.text().sliced(token.start, token.length);
    if (token.kind == Token::Kind::word) {
        if (isEastern(written.front()) || isEastern(written.back()))
            return readEastern(token, written);
        return appendWord(token.start, token.end(), m_tokens.folded(index), token.afterSpace);
    }
    Lexeme lexeme;
    lexeme.start = token.start;
    lexeme.end = token.end();
    lexeme.afterSpace = token.afterSpace;
    if (token.kind == Token::Kind::number) {
        lexeme.kind = Lexeme::Kind::number;
        lexeme.value = token.value;
        lexeme.digits = quint8(std::min(token.length, 255));
        lexeme.roles = maskOf(Role::number);
    } else if (written.front() == u'〇') {
        readEasternNumber(token.start, written, token.afterSpace);
        return;
    } else {
        lexeme.mark = plainMark(written.front().unicode());
    }
    append(lexeme);
}

void DateLine::appendWord(qint32 start, qint32 end, QStringView word, bool afterSpace) {
    Lexeme lexeme;
    lexeme.kind = Lexeme::Kind::word;
    lexeme.start = start;
    lexeme.end = end;
    lexeme.afterSpace = afterSpace;
    lexeme.capital = m_tokens.text().at(start).isUpper();
    lexeme.meanings = WordMeanings::of(word);
    if (lexeme.meanings == WordMeanings::none && end - start < 24) {
        const QStringView written = m_tokens.text().sliced(start, end - start);
        const auto straight = written.indexOf(u'\'');
        const auto mark = straight >= 0 ? straight : written.indexOf(u'\u2019');
        if (mark > 0) {
            QString plain = quorvel::folded(written);
            plain.replace(u'\u2019', u'\'');
            lexeme.meanings = WordMeanings::of(plain);
            // "l'année", "quest'anno", "today's"
            if (lexeme.meanings == WordMeanings::none) {
                const auto cut = plain.indexOf(u'\'');
                appendWord(start, start + qint32(mark), QStringView(plain).first(cut), afterSpace);
                return appendWord(start + qint32(mark) + 1, end, QStringView(plain).sliced(cut + 1),
                                  true);
            }
        }
    }
    lexeme.roles = WordMeanings::roles(lexeme.meanings);
    append(lexeme);
}

void DateLine::readEastern(const Token& token, QStringView written) {
    qsizetype position = 0;
    qsizetype unknown = 0;
    const auto isFirst = [&](qsizetype start) { return start == 0 && token.afterSpace; };
    const auto appendPart = [&](qsizetype start, qsizetype end, qint16 meanings) {
        if (end > start)
            appendEastern(token.start + qint32(start), token.start + qint32(end), meanings,
                          isFirst(start));
    };
    while (position < written.size()) {
        const QStringView rest = written.sliced(position);
        // Korean particles follow a word; what is inside of one is no word.
        const bool isInside = unknown < position && isHangul(rest.front());
        qsizetype length = 0;
        const qint16 meanings =
            isInside ? WordMeanings::none : WordMeanings::ofEastern(rest, length);
        if (meanings == WordMeanings::none && easternDigit(rest.front()) < 0) {
            ++position;
            continue;
        }
        appendPart(unknown, position, WordMeanings::none);
        if (meanings == WordMeanings::none)
            length = readEasternNumber(token.start + qint32(position), rest, isFirst(position));
        else
            appendPart(position, position + length, meanings);
        position += length;
        unknown = position;
    }
    appendPart(unknown, written.size(), WordMeanings::none);
}

void DateLine::appendEastern(qint32 start, qint32 end, qint16 meanings, bool afterSpace) {
    Lexeme lexeme;
    lexeme.kind = Lexeme::Kind::word;
    lexeme.eastern = true;
    lexeme.start = start;
    lexeme.end = end;
    lexeme.afterSpace = afterSpace;
    lexeme.meanings = meanings;
    lexeme.roles = WordMeanings::roles(meanings);
    append(lexeme);
}

qsizetype DateLine::readEasternNumber(qint32 start, QStringView rest, bool afterSpace) {
    constexpr qsizetype mostDigits = 4;
    qsizetype length = 1;
    while (length < std::min(rest.size(), mostDigits) && easternDigit(rest.at(length)) >= 0)
        ++length;
    Lexeme lexeme;
    lexeme.kind = Lexeme::Kind::number;
    lexeme.eastern = true;
    lexeme.start = start;
    lexeme.end = start + qint32(length);
    lexeme.afterSpace = afterSpace;
    lexeme.value = easternNumber(rest.first(length));
    lexeme.digits = quint8(rest.first(length).contains(u'十') ? 2 : length);
    lexeme.roles = maskOf(Role::number);
    appendEasternNumber(lexeme);
    return length;
}

/// The round zero is no letter, so numbers that hold one come in pieces.
void DateLine::appendEasternNumber(Lexeme lexeme) {
    constexpr int powers[] = {1, 10, 100, 1000};
    constexpr int mostDigits = 4;
    if (!m_lexemes.isEmpty() && !lexeme.afterSpace) {
        const Lexeme previous = m_lexemes.last();
        const bool joins = previous.eastern && previous.kind == Lexeme::Kind::number &&
                           previous.digits + lexeme.digits <= mostDigits;
        if (joins) {
            lexeme.value += previous.value * powers[lexeme.digits];
            lexeme.digits = quint8(lexeme.digits + previous.digits);
            lexeme.start = previous.start;
            lexeme.afterSpace = previous.afterSpace;
            m_lexemes.removeLast();
        }
    }
    append(lexeme);
}

void DateLine::append(Lexeme lexeme) {
    if (isMark(size() - 1, u'/') && isMark(size() - 2, u':') && lexeme.mark == u'/')
        m_isInAddress = true;
    if (m_isInAddress) {
        lexeme.roles = 0;
        lexeme.value = -1;
    }
    m_isPromising = m_isPromising || (lexeme.roles & (starters | maskOf(Role::number))) != 0;
    m_lexemes.append(lexeme);
}

} // namespace quorvel
