#pragma once

#include "menu/MenuContent.h"

namespace quorvel {

/// Where a clip is from and how old it is, such as "Firefox · 3 min".
QString clipDetail(const RecentClipboardEntry& entry, const MenuContent& content);

/// Whether the entry is pinned and its pin has not lapsed.
bool isPinnedNow(const RecentClipboardEntry& entry, const Clock& clock);

} // namespace quorvel
