#pragma once

#include "app/preferences/Preferences.h"
#include "clipboard/ClipboardHistory.h"
#include "foundation/Clock.h"
#include "foundation/StringTable.h"
#include "smart/masking/ShownTexts.h"

#include <QString>

namespace quorvel {

/// What the menu is built from. Read at each build, never kept.
struct MenuContent {
    const ClipboardHistory& history;
    const Preferences& preferences;
    const StringTable& strings;
    const Clock& clock;
    const ShownTexts& shownTexts;
};

} // namespace quorvel
