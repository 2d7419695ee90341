#pragma once

class QWidget;

namespace quorvel {

/// Tries to take pointer and keyboard for an open popup, harmless when it has them; false while
/// another program holds the keyboard (one that holds the pointer is not noticed everywhere).
/// Always true on platforms without such grabs.
bool takeGrabs(QWidget& popup);

} // namespace quorvel
