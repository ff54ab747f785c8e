// SPDX-License-Identifier: MIT
#include "devctrl/device/device_obj.h"

#include <numeric>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

TarnDeviceObj::TarnDeviceObj(const TarnDeviceObj& other) {
    *this = other;
}

TarnDeviceObj& TarnDeviceObj::operator=(const TarnDeviceObj& other) {
    if (this == &other)
        return *this;
    clear();
    m_part = other.m_part;
    for (const auto& asc : other.m_ascList)
        m_ascList.push_back(asc);
    return *this;
}

void TarnDeviceObj::clear() {
    m_part.clear();
    m_ascList.clear();
}

bool TarnDeviceObj::operator==(const TarnDeviceObj& other) const {
    // Order matters on purpose: the list is the caller's order of linking.
    return m_part == other.m_part && m_ascList == other.m_ascList;
}

std::map<std::string, int> TarnDeviceObj::getAscMap() const {
    std::map<std::string, int> counts;
    for (const auto& asc : m_ascList)
        ++counts[asc];
    return counts;
}

std::string TarnDeviceObj::toString(bool ascOnly) const {
    std::string text = ascOnly ? std::string() : m_part;
    for (const auto& [asc, count] : getAscMap()) {
        if (!text.empty())
            text += ' ';
        text += "{" + asc + " " + util::toString<int>(count) + "}";
    }
    return text;
}

int TarnDeviceObj::externalTotalAscNumber() const {
    return static_cast<int>(m_ascList.size());
}

int TarnDeviceObj::internalTotalAscNumber() const {
    // The on-board stock belongs to the family data, which may be reloaded at
    // any time, so it is asked afresh rather than cached here.
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    if (!mngr || m_part.empty())
        return 0;
    std::map<std::string, int> onBoard;
    if (!mngr->getInternalASCs(m_part, onBoard))
        return 0;
    return std::accumulate(onBoard.begin(), onBoard.end(), 0,
                           [](int sum, const auto& entry) { return sum + entry.second; });
}

int TarnDeviceObj::totalAscNumber() const {
    return internalTotalAscNumber() + externalTotalAscNumber();
}

bool TarnDeviceObj::useASC() const {
    return totalAscNumber() >= 1;
}

}  // namespace tarn::vyxpn
