#pragma once

#include <QString>

namespace quorvel {

struct TextCounts {
    qsizetype characters = 0; ///< As people see them.
    qsizetype words = 0;
    qsizetype lines = 0; ///< A break at the end starts no further line.

    bool operator==(const TextCounts&) const = default;
};

/// Counts a text bit by bit, so that a long one holds nothing up.
class TextCounter {
public:
    explicit TextCounter(QString text);

    /// Counts about this many further UTF-16 units (at least one word's worth).
    void advance(qsizetype units);

    bool isDone() const { return m_position >= m_text.size(); }
    const TextCounts& counts() const { return m_counts; }

private:
    qsizetype endOfBit(qsizetype units) const;
    void countBit(QStringView bit);

    QString m_text;
    qsizetype m_position = 0;
    TextCounts m_counts;
};

} // namespace quorvel
