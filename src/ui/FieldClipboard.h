#pragma once

#include "platform/Pasteboard.h"

#include <optional>

class QKeyEvent;

namespace quorvel {

/// What a text field does with the clipboard. Our fields use the pasteboard: the toolkit's own
/// clipboard waits for the program that has copied, and a grab of ours would be held meanwhile.
enum class ClipboardUse { copy, cut, paste };

/// What the key press asks for by the desktop's usual keys; nothing for any other.
std::optional<ClipboardUse> clipboardUse(const QKeyEvent& press);

/// The text on the pasteboard for a field of one line: the first line that is not blank, trimmed
/// and bounded. Empty when there is none.
QString clipboardLine(const Pasteboard& pasteboard);

} // namespace quorvel
