#include "platform/text/Tokens.h"

#include "foundation/CodePoints.h"
#include "foundation/Folding.h"

namespace quorvel {

namespace {

enum class Class { space, line, letter, digit, apostrophe, other };

Class classOf(char32_t c) {
    if (c == U'\n' || c == U'\r' || c == 0x2028 || c == 0x2029)
        return Class::line;
    if (QChar::isSpace(c))
        return Class::space;
    if (c == U'\'' || c == 0x2019)
        return Class::apostrophe;
    if (QChar::isLetter(c) || QChar::isMark(c))
        return Class::letter;
    return QChar::isDigit(c) ? Class::digit : Class::other;
}

/// Where the run of this class that begins at `start` ends. An apostrophe belongs to a word when
/// letters stand on both sides.
qsizetype endOfRun(QStringView text, qsizetype start, Class kind) {
    qsizetype end = start;
    for (CodePoints it(text.sliced(start)); it.hasNext();) {
        const Class next = classOf(it.next());
        if (next == kind) {
            end = start + it.index();
            continue;
        }
        const bool joinsLetters = kind == Class::letter && next == Class::apostrophe &&
                                  it.hasNext() && classOf(it.peekNext()) == Class::letter;
        if (!joinsLetters)
            break;
    }
    return end;
}

qint32 numberValue(QStringView digits) {
    constexpr qsizetype mostDigits = 9;
    qint32 value = 0;
    qsizetype count = 0;
    for (CodePoints it(digits); it.hasNext(); ++count) {
        if (count == mostDigits)
            return -1;
        value = value * 10 + QChar::digitValue(it.next());
    }
    return value;
}

} // namespace

Tokens::Tokens(QStringView text)
    : m_text(text) {
    m_folded.reserve(text.size() + 16);
    m_tokens.reserve(text.size() / 4 + 4);
    cut();
}

void Tokens::cut() {
    qsizetype position = 0;
    while (position < m_text.size()) {
        CodePoints it(m_text.sliced(position));
        const Class kind = classOf(it.next());
        const qsizetype single = position + it.index();
        if (kind == Class::space || kind == Class::line) {
            m_afterSpace = true;
            m_afterLine = m_afterLine || kind == Class::line;
            position = single;
            continue;
        }
        const bool isRun = kind == Class::letter || kind == Class::digit;
        const qsizetype end = isRun ? endOfRun(m_text, position, kind) : single;
        append(kind == Class::letter  ? Token::Kind::word
               : kind == Class::digit ? Token::Kind::number
                                      : Token::Kind::mark,
               position, end);
        position = end;
    }
}

void Tokens::append(Token::Kind kind, qsizetype start, qsizetype end) {
    Token token;
    token.kind = kind;
    token.afterSpace = std::exchange(m_afterSpace, false);
    token.afterLine = std::exchange(m_afterLine, false);
    token.start = qint32(start);
    token.length = qint32(end - start);
    token.foldedStart = qint32(m_folded.size());
    const QStringView written = m_text.sliced(start, end - start);
    for (CodePoints it(written); it.hasNext();)
        appendFolded(it.next(), m_folded);
    token.foldedLength = qint32(m_folded.size()) - token.foldedStart;
    if (kind == Token::Kind::number)
        token.value = numberValue(written);
    m_tokens.append(token);
}

} // namespace quorvel
