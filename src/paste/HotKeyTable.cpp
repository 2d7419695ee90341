#include "paste/HotKeyTable.h"

namespace quorvel {

std::optional<int> recentClipPosition(HotKeyId id) {
    const qint64 position = qint64(id) - qint64(HotKeyId::firstRecentClip);
    const bool isOne = position >= 0 && position < recentClipKeys.size();
    return isOne ? std::optional(int(position)) : std::nullopt;
}

} // namespace quorvel
