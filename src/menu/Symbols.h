#pragma once

#include "clipboard/RecentClipboardEntry.h"
#include "smart/SmartFolderKind.h"

namespace quorvel {

/// The symbol that tells what a clip is.
QString clipSymbol(const RecentClipboardEntry& entry);

/// The colour that a clip names, as "#rrggbb"; empty when it is about none.
QString clipColor(const RecentClipboardEntry& entry);

QString folderSymbol(SmartFolderKind folder);

} // namespace quorvel
