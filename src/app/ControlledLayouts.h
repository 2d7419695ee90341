#pragma once

#include "app/ControlCommands.h"

#include <QJsonObject>

namespace quorvel::controlled {

/// The keyboard layouts, the one in which "text" was typed (null when none is known), and the text
/// as it would be in each of the others, also where that is nonsense.
ControlReply readLayouts(const ControlledParts& parts, const QJsonObject& arguments);

} // namespace quorvel::controlled
