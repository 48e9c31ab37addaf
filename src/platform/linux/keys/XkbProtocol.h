#pragma once

// The protocol header names a member with a C++ keyword.
#define explicit explicitComponents
#include <xcb/xkb.h>
#undef explicit
