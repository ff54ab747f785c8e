// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

// A chosen part together with the external ASC chips linked to it. A plain
// value: callers fill and read the two fields directly.
class DEVCTRL_API TarnDeviceObj {
  public:
    TarnDeviceObj() = default;
    explicit TarnDeviceObj(const std::string& part) : m_part(part) {}
    TarnDeviceObj(const TarnDeviceObj& other);
    TarnDeviceObj& operator=(const TarnDeviceObj& other);
    ~TarnDeviceObj() = default;

    void clear();
    // Equal part and the same chips in the same order.
    bool operator==(const TarnDeviceObj& other) const;

    // Linked chips counted by name, names in byte-wise order.
    std::map<std::string, int> getAscMap() const;
    // "PART {A 1} {B 2}"; without the part when ascOnly.
    std::string toString(bool ascOnly) const;

    int externalTotalAscNumber() const;
    // Chips the part has on board, asked of the device manager each time.
    int internalTotalAscNumber() const;
    int totalAscNumber() const;
    bool useASC() const;

    std::string m_part;
    std::vector<std::string> m_ascList;
};

}  // namespace tarn::vyxpn
