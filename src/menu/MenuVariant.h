#pragma once

namespace quorvel {

/// Which flavour of the menu is shown: by a click on the status item, or by one of the hot keys.
enum class MenuVariant { main, pasteHotKey, copyHotKey, translateHotKey };

} // namespace quorvel
