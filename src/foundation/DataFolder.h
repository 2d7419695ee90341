#pragma once

#include <QString>

namespace quorvel {

/// Makes the folder for the user's data ready. A folder under the former name becomes the current
/// one when there is none yet; beside a current one it is removed. What fails is logged, and goes
/// on with the paths as they are. An empty former name stands for none.
void prepareDataFolder(const QString& current, const QString& former);

} // namespace quorvel
