#pragma once

#include "smart/masking/SecretMasker.h"

namespace quorvel {

/// The arguments of one command, up to the end of the line, a pipe or a semicolon.
class CommandLine {
public:
    /// `at` is behind the name of the program.
    CommandLine(QStringView text, qsizetype at)
        : m_text(text) {
        readArguments(at);
    }

    qsizetype count() const { return m_arguments.size(); }
    qsizetype end() const { return m_end; }

    /// As it is written, with quotes; empty beyond the last.
    QStringView argument(qsizetype index) const;

    /// The place of an argument behind its first `skipped` units, without quotes.
    SecretRange unquoted(qsizetype index, qsizetype skipped) const;

private:
    struct Argument {
        qsizetype start = 0;
        qsizetype end = 0;
    };
    void readArguments(qsizetype at);

    QStringView m_text;
    QList<Argument> m_arguments;
    qsizetype m_end = 0;
};

} // namespace quorvel
