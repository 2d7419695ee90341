#pragma once

#include "app/ControlCommands.h"

#include <QJsonObject>

namespace quorvel {

/// How the program is: adapters, tray, hot keys, changes of the clipboard, files, problems.
QJsonObject statusReport(const ControlledParts& parts);

} // namespace quorvel
