// SPDX-License-Identifier: MIT
#pragma once
// Resolving the names a user types: PM codes or family names, and part,
// device, package and speed names with "did you mean" suggestions.

#include <string>
#include <vector>

#include "devctrl/mngr/near_names.h"

namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl_tool {

// The library's "did you mean" rules, used for every name a user types.
using tarn::vyxpn::NearNames;
using tarn::vyxpn::unknownNameMessage;

// The loaded PM that `argument` names: a PM code as it stands, or a family
// name in any letter case. Throws ToolError for anything else.
std::string resolvePm(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& argument);

// Throws ToolError, with suggestions from every loaded family, unless some
// loaded family knows the full part name.
void requireKnownPart(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part);

// Throws ToolError ("unknown <kind> '<name>' in <where>") with suggestions
// from `known` unless `name` is in it.
void requireListed(const std::string& kind, const std::string& name,
                   const std::vector<std::string>& known, const std::string& where);

// Checks a device, and then a package and a speed grade when given, against
// what the PM lists (obsolete parts included), level by level, with
// suggestions at the first level that does not know the name.
void requireSelection(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                      const std::string& device, const std::string* package = nullptr,
                      const std::string* speed = nullptr);

}  // namespace devctrl_tool
