#pragma once

#include <QString>

#include <functional>

namespace quorvel {

/// Values that are known by their characters alone. Each takes time in proportion to the text.

/// The digits of the first number of 13 to 19 digits, written without or with single blanks and
/// hyphens between them, that passes the check of ISO/IEC 7812-1 (Luhn); empty without one.
QString cardDigits(QStringView text);

/// \b[A-Z]{2}\d{2}[A-Z0-9]{10,30}\b without regard to case: the shape of an account number by
/// ISO 13616. Its check digits are not looked at: it finds candidates.
bool hasIBANCandidate(QStringView text);

/// Four numbers from 0 to 255 with dots between them.
bool hasIPv4Candidate(QStringView text);

/// Whether a UUID in its usual form stands where `isAllowed(start, end)` holds.
bool hasUUID(QStringView text, const std::function<bool(qsizetype, qsizetype)>& isAllowed);

} // namespace quorvel
