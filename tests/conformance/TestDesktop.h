#pragma once

#include "support/PrivateDesktop.h"

namespace quorvel {

/// The desktop that this test program runs on itself; its DISPLAY and XDG folders are the test
/// program's own.
PrivateDesktop& testDesktop();

} // namespace quorvel
