// SPDX-License-Identifier: MIT
#pragma once
// Checking the names a host was given against what the loaded families know,
// so that a typing error becomes an UnknownNameError with the nearest names
// instead of an empty answer.

#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;

// The loaded PM that `pmOrFamily` names: a loaded PM code as it stands, or a
// family name in any letter case. Throws UnknownNameError (kind "PM or
// family") with the nearest PM codes and family names, or std::runtime_error
// when the name is installed but its family did not load.
DEVCTRL_API std::string requireLoadedPm(TarnDeviceMngr& mngr, const std::string& pmOrFamily);

// Throws UnknownNameError (kind "part") with the nearest part names of every
// loaded family unless one of them knows the full part name.
DEVCTRL_API void requireKnownPart(TarnDeviceMngr& mngr, const std::string& part);

// Throws UnknownNameError (kind `kind`, " in <where>") with the nearest of
// `known` unless `name` is one of them.
DEVCTRL_API void requireListed(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& known, const std::string& where);

}  // namespace tarn::vyxpn
