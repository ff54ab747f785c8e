// SPDX-License-Identifier: MIT
// A family source reaching up into the manager: the check must refuse it.
#include "../mngr/device_mngr.h"
