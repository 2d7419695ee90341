#pragma once

#include <QString>

namespace quorvel {

/// The digits of a payment card number with blanks between them as they are printed on cards of its
/// brand: "4111 1111 1111 1111", "3782 822463 10005".
QString groupedCard(const QString& digits);

} // namespace quorvel
