#pragma once

#include <QFlags>

namespace quorvel {

/// The four modifier keys with the bits under which shortcuts are stored. On Linux, command is
/// the Super key and option is Alt.
enum class Modifier : quint32 {
    shift = 0x20000,
    control = 0x40000,
    option = 0x80000,
    command = 0x100000,
};
Q_DECLARE_FLAGS(Modifiers, Modifier)
Q_DECLARE_OPERATORS_FOR_FLAGS(Modifiers)

/// Every bit that a shortcut may use.
inline constexpr quint32 modifierMask = 0x1E0000;

} // namespace quorvel
