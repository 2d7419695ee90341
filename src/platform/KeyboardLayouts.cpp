#include "platform/KeyboardLayouts.h"

namespace quorvel {

void KeyboardLayoutMap::record(const KeyboardLayoutStroke& stroke, const QString& character) {
    strokeToChar.insert(stroke, character);
    if (!charToStroke.contains(character))
        charToStroke.insert(character, stroke);
}

void KeyboardLayoutMap::recordDeadKey(const KeyboardLayoutStroke& stroke, const QString& mark,
                                      const QString& alone) {
    record(stroke, alone);
    strokeToMark.insert(stroke, mark);
    if (!charToStroke.contains(mark))
        charToStroke.insert(mark, stroke);
}

} // namespace quorvel
