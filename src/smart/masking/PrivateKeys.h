#pragma once

#include "smart/masking/SecretMasker.h"

#include <optional>

namespace quorvel {

/// What was read of an armoured block: its body, if that is a private key, and where to read on.
/// Public keys and certificates are read over.
struct ArmourReading {
    std::optional<SecretRange> hidden;
    qsizetype end = 0;
};

/// Reads the armoured blocks of one text, from front to back. Remembers where the next marks are,
/// so that many blocks without an end cost no more than one.
class ArmourReader {
public:
    explicit ArmourReader(QStringView text)
        : m_text(text) {}

    /// `start` is at five dashes.
    ArmourReading read(qsizetype start);

private:
    struct NextMark {
        QStringView mark;
        qsizetype at = -1;
    };
    qsizetype nextOf(NextMark& mark, qsizetype from) const;
    qsizetype endOfBody(qsizetype body);

    QStringView m_text;
    NextMark m_begin{u"-----BEGIN "};
    NextMark m_end{u"-----END "};
};

/// The lines of a PuTTY key file behind "Private-Lines:".
std::optional<SecretRange> keyLinesAt(QStringView text, qsizetype start);

} // namespace quorvel
