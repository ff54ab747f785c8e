// SPDX-License-Identifier: MIT
#pragma once
// Quoting values for one-line messages. The platform layer's traces need it
// too, so it lives there; this is the library's name for it.

#include "devctrl/platform/ut_quote.h"
