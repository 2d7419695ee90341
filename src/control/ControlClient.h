#pragma once

#include "control/ControlProtocol.h"

#include <optional>

namespace quorvel {

/// Sends one request to the running instance and waits for its answer. Absent when none runs.
std::optional<ControlReply> sendControlRequest(const QString& socketPath,
                                               const ControlRequest& request);

} // namespace quorvel
