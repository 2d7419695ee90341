#pragma once

#include <QString>

namespace quorvel {

/// Reads a text code point by code point; a surrogate without its partner comes as itself.
class CodePoints {
public:
    explicit CodePoints(QStringView text)
        : m_text(text) {}

    bool hasNext() const { return m_index < m_text.size(); }
    qsizetype index() const { return m_index; }

    char32_t next() {
        const char32_t character = peekNext();
        m_index += QChar::requiresSurrogates(character) ? 2 : 1;
        return character;
    }

    char32_t peekNext() const {
        const QChar unit = m_text[m_index];
        const bool isPair = unit.isHighSurrogate() && m_index + 1 < m_text.size() &&
                            m_text[m_index + 1].isLowSurrogate();
        return isPair ? QChar::surrogateToUcs4(unit, m_text[m_index + 1]) : unit.unicode();
    }

private:
    QStringView m_text;
    qsizetype m_index = 0;
};

} // namespace quorvel
