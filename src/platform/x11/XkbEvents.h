#pragma once

#include <xcb/xcb.h>

// The C header has a member of this name, which C++ keeps for itself.
#define explicit explicitMember
#include <xcb/xkb.h>
#undef explicit
