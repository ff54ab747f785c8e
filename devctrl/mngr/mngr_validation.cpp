// SPDX-License-Identifier: MIT
// Checking a user's choice: a part with linked ASC chips (isValid) and a bare
// device name that may have been renamed or superseded (checkDevice).

#include <algorithm>
#include <map>
#include <numeric>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {
// The part's on-board chips as this manager's families give them; the device
// object would ask the process-wide manager, which need not be this one.
int onBoardChips(TarnDeviceMngr& mngr, const std::string& part) {
    std::map<std::string, int> onBoard;
    if (part.empty() || !mngr.getInternalASCs(part, onBoard))
        return 0;
    return std::accumulate(onBoard.begin(), onBoard.end(), 0,
                           [](int sum, const auto& entry) { return sum + entry.second; });
}
}  // namespace

bool TarnDeviceMngr::isValid(const TarnDeviceObj& dev, std::string& message) {
    const std::string& part = dev.m_part;
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition)) {
        message = util::escapedForMessage(part) + " is invalid device or not supported";
        return false;
    }

    if (!checkLinkedASCs(dev, message))
        return false;
    const int onBoard = onBoardChips(*this, part);
    if (onBoard + dev.externalTotalAscNumber() < 1)
        return true;

    // Runs whenever chips are used at all, so a part with only on-board chips
    // and no capacity is refused too.
    int maxChips = getASCMaxNum(part);
    if (maxChips <= 0) {
        message = "Can't add external ASC chip for device " + util::quotedForMessage(part) + ".";
        return false;
    }

    int allowedExternal = maxChips - onBoard;
    if (dev.externalTotalAscNumber() <= allowedExternal)
        return true;
    message = "Total external linked ASC chips number " + util::toString<int>(allowedExternal) +
              " for device " + util::quotedForMessage(part) + " will be exceeded";
    return false;
}

bool TarnDeviceMngr::checkLinkedASCs(const TarnDeviceObj& dev, std::string& message) {
    const std::string& part = dev.m_part;
    // A part without linkable-type data simply allows no external chip.
    StringList linkable;
    getSupportedASCs(part, linkable);
    for (const auto& [asc, count] : dev.getAscMap()) {
        if (std::find(linkable.begin(), linkable.end(), asc) == linkable.end()) {
            message = "ASC chip " + util::quotedForMessage(asc) +
                      " is invalid or unsupported ASC chip for device " +
                      util::quotedForMessage(part);
            return false;
        }
        if (count < 0) {
            message = "Invalid number '" + util::toString<int>(count) + "' for using ASC chip " +
                      util::quotedForMessage(asc);
            return false;
        }
    }
    return true;
}

int TarnDeviceMngr::checkDevice(const std::string& name, std::string& newName) {
    // Answers of getNewFormatDeviceName.
    enum { kNoEntry = 0, kRenamed = 1, kMigrated = 2, kNotRecommended = 3 };

    std::string converted;
    switch (getNewFormatDeviceName(name, converted)) {
        case kRenamed:
        case kMigrated:
            if (!exists(converted))
                return DeviceCheckUnknown;
            newName = converted;
            return DeviceCheckUseNewName;
        case kNotRecommended:
            // The given name must still exist; the caller is told the
            // recommended one.
            if (!exists(name))
                return DeviceCheckUnknown;
            newName = converted;
            return DeviceCheckReplacementRecommended;
        case kNoEntry: {
            if (exists(name))
                return DeviceCheckValid;
            // An engineering-sample name stands for its production part.
            const std::string sampleSuffix = "ES";
            if (name.size() >= sampleSuffix.size() &&
                name.compare(name.size() - sampleSuffix.size(), sampleSuffix.size(),
                             sampleSuffix) == 0) {
                std::string production = name.substr(0, name.size() - sampleSuffix.size());
                if (exists(production)) {
                    newName = production;
                    return DeviceCheckUseNewName;
                }
            }
            return DeviceCheckUnknown;
        }
        default:
            return DeviceCheckValid;
    }
}

}  // namespace tarn::vyxpn
