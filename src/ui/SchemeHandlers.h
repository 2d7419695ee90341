#pragma once

#include <QString>

namespace quorvel {

/// Whether a program of this desktop is there for addresses that begin with the scheme, such as
/// "tel". The opener of the desktop does not tell when it finds none.
bool hasSchemeHandler(const QString& scheme);

} // namespace quorvel
