#pragma once

// The C header has a member that is named like a C++ keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
