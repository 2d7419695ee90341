#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace quorvel {

/// A run of digits and separators that may be a telephone number.
struct PhoneCandidate {
    qsizetype start = 0;
    qsizetype end = 0;

    /// ASCII digits, with "+" in front in international form.
    QString digits;

    /// Lengths of the groups of digits as written, the separators between them (the last one of
    /// each gap), and whether round brackets stand around a group.
    QList<int> groups;
    QString separators;
    bool hasBrackets = false;

    bool isInternational() const { return digits.startsWith(u'+'); }
};

/// The next candidate at or after `position`, which moves behind what was looked at; none when the
/// text has no more. Takes time in proportion to what it passes.
std::optional<PhoneCandidate> nextPhoneCandidate(QStringView text, qsizetype& position);

/// What stands around a candidate and says that it is something else: letters that belong to it, a
/// currency, the rest of a larger number, a word such as "order" or "ISBN" before it.
bool isRuledOutByContext(QStringView text, const PhoneCandidate& candidate);

/// Where an extension behind a number ends ("ext. 12", "доб. 5"); `end` when there is none.
qsizetype endOfExtension(QStringView text, qsizetype end);

} // namespace quorvel
