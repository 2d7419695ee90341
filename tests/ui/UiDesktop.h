#pragma once

#include "support/PrivateDesktop.h"

namespace quorvel {

/// The desktop that this test program runs on itself.
PrivateDesktop& uiDesktop();

/// Runs xdotool on it, to press keys and to move the pointer as a user would.
void xdotool(const QStringList& arguments);
void pressKeys(const char* keys);

} // namespace quorvel
