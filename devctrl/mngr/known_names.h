// SPDX-License-Identifier: MIT
#pragma once
// Checking the names a host was given against what the loaded families know,
// so that a typing error becomes an UnknownNameError with the nearest names
// instead of an empty answer.

#include <stdexcept>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;

// A name the installation lists whose family failed to load: the user typed
// it right, so there is nothing to suggest; the load failure says why.
class DEVCTRL_API FamilyNotLoadedError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The loaded PM that `pmOrFamily` names: a loaded PM code as it stands, or a
// family name in any letter case. Throws UnknownNameError (kind "PM or
// family") with the nearest PM codes and family names, or
// FamilyNotLoadedError when the name is installed but its family did not load.
DEVCTRL_API std::string requireLoadedPm(TarnDeviceMngr& mngr, const std::string& pmOrFamily);

// Throws UnknownNameError (kind "part") with the nearest part names of every
// loaded family unless one of them knows the full part name.
DEVCTRL_API void requireKnownPart(TarnDeviceMngr& mngr, const std::string& part);

// Throws UnknownNameError (kind `kind`, " in <where>") with the nearest of
// `known` unless `name` is one of them.
DEVCTRL_API void requireListed(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& known, const std::string& where);

// Checks a device, then a package and a speed grade when given, against what
// the loaded PM `pm` lists with its obsolete parts, level by level: the
// UnknownNameError (kinds "device", "package", "speed grade") names the
// first level that does not know the name, with its nearest names.
DEVCTRL_API void requireSelection(TarnDeviceMngr& mngr, const std::string& pm,
                                  const std::string& device, const std::string* package = nullptr,
                                  const std::string* speed = nullptr);

}  // namespace tarn::vyxpn
