// SPDX-License-Identifier: MIT
#pragma once
// The library's export mark, defined once by the platform layer below it.

#include "devctrl/platform/export.h"
