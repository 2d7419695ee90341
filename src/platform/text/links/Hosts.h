#pragma once

#include <QString>

namespace quorvel {

/// Whether names are registered below the end of this one (https://publicsuffix.org): "com",
/// "uk", "рф". Any case.
bool hasPublicSuffix(QStringView host);

/// Whether the units can be a host after "://": labels of letters, digits, hyphens and underscores
/// with dots between, or an address of version 6 in brackets. One label is enough.
bool isHost(QStringView host);

/// Whether the units are a full name that an e-mail address can end with.
bool isMailDomain(QStringView domain);

/// How sure a name without a scheme is a link.
enum class BareHost {
    no,
    /// Ends like a file, or like a member in source code: only with a path behind it.
    withPath,
    yes,
};

BareHost judgeBareHost(QStringView host);

} // namespace quorvel
