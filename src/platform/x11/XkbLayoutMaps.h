#pragma once

#include "platform/KeyboardLayouts.h"

#include <QStringList>

#include <xkbcommon/xkbcommon.h>

namespace quorvel {

/// The identifiers of layouts by the two lists of the keyboard's rules: "us,ru" and ",phonetic"
/// give "us" and "ru(phonetic)".
QStringList layoutIDs(QStringView layouts, QStringView variants);

/// One map for each group of the keymap. A group without an identifier goes by its name; of groups
/// with the same one only the first is taken, and one that gives no characters is left out.
QList<KeyboardLayoutMap> keyboardLayoutMaps(xkb_keymap* keymap, const QStringList& ids);

/// The identifier of a group; empty when the keymap has no such group.
QString layoutID(xkb_keymap* keymap, const QStringList& ids, xkb_layout_index_t group);

} // namespace quorvel
