// SPDX-License-Identifier: MIT
#pragma once
// A platform header reaching up into the library: the check must refuse it.
#include "devctrl/util/string_utils.h"
