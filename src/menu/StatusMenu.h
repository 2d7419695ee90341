#pragma once

#include "menu/MenuContent.h"
#include "menu/MenuItem.h"
#include "menu/MenuVariant.h"

namespace quorvel {

/// The whole tree of the status menu in one of its flavours. `saveProblem` is shown on top when it
/// is not empty.
QList<MenuItem> statusMenu(const MenuContent& content, MenuVariant variant,
                           const QString& saveProblem);

} // namespace quorvel
