#pragma once

class QWidget;

namespace quorvel {

/// Tries to take pointer and keyboard for an open popup, harmless when it has them; false while
/// another program holds one of them. Always true on platforms without such grabs.
bool takeGrabs(QWidget& popup);

} // namespace quorvel
