// SPDX-License-Identifier: MIT
#pragma once
// Everything a host program needs: the device manager, the family data
// objects, device objects, the comparators, the text helpers and the INI
// profile functions; part search, item listing, "did you mean" and load
// progress. Qt stays out: hosts that want the settings store include
// <devctrl/platform/base_settings.h>.

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/data_check.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/devstatus_flags.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/sds/sds_file_section.h"
#include "devctrl/util/comparators.h"
#include "devctrl/util/profile.h"
#include "devctrl/util/string_utils.h"
#include "devctrl/util/tokenizer.h"
#include "devctrl/util/version.h"

#include "devctrl/mngr/load_progress.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/mngr/part_items.h"
#include "devctrl/mngr/part_search.h"
#include "devctrl/sds/item_source.h"
#include "devctrl/util/glob_match.h"

#include "devctrl/platform/pm_devkey.h"
#include "devctrl/platform/pm_pic.h"
#include "devctrl/platform/ut_trace.h"
