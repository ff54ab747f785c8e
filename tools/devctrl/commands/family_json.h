// SPDX-License-Identifier: MIT
#pragma once
// A family's export written as one JSON object of the export document,
// streamed, so that a large catalogue is never held as JSON in memory.

#include <ostream>
#include <string>

namespace tarn::vyxpn {
struct FamilyExport;
}

namespace devctrl_tool {

// The object of one PM: family, devices, packages per device, speeds per
// device and package, conditions per device, package and speed, and the
// parts with their fields and custom items, in the export's orders. A level
// whose column the part table lacks has no entries.
void writeFamilyJson(std::ostream& out, const std::string& family,
                     const tarn::vyxpn::FamilyExport& data);

}  // namespace devctrl_tool
