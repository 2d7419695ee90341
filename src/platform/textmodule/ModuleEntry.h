#pragma once

#include "platform/TextServices.h"

namespace quorvel {

/// The one function of the module "quorvel_textservices": makes the services for a user's country
/// (two capital letters; empty for the one of the locale). The caller owns the result.
using MakeTextServices = TextServices* (*)(const QString& country);

inline constexpr const char* makeTextServicesName = "quorvelMakeTextServices";
inline constexpr const char* textServicesModule = "quorvel_textservices";

} // namespace quorvel
