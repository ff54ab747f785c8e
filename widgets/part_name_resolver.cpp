// SPDX-License-Identifier: MIT
#include "part_name_resolver.h"

#include <QString>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"

namespace devctrl {

using tarn::vyxpn::TarnDeviceMngr;

namespace {

std::vector<std::string> nearestParts(TarnDeviceMngr& mngr, const std::string& typed) {
    tarn::vyxpn::NearNames near(typed);
    for (const auto& entry : mngr.getFamilyFiles()) {
        tarn::vyxpn::StringList parts;
        mngr.getAllPartsByPM(entry.first, parts, true, false);
        for (const auto& part : parts)
            near.consider(part);
    }
    return near.best();
}

bool sameIgnoringCase(const std::string& a, const std::string& b) {
    return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) == 0;
}

}  // namespace

PartNameResolution resolvePartName(TarnDeviceMngr& mngr, const std::string& typed) {
    PartNameResolution result;
    std::string name = QString::fromStdString(typed).trimmed().toStdString();
    if (name.empty())
        return result;
    std::vector<std::string> near;
    if (!mngr.exists(name)) {
        const std::string upper = QString::fromStdString(name).toUpper().toStdString();
        if (mngr.exists(upper)) {
            name = upper;
        } else {
            near = nearestParts(mngr, name);
            if (near.size() == 1 && sameIgnoringCase(near.front(), name))
                name = near.front();
        }
    }
    std::string newName;
    int check = mngr.checkDevice(name, newName);
    // Old names are listed in upper case, as part names are.
    const std::string upper = QString::fromStdString(name).toUpper().toStdString();
    if (check == TarnDeviceMngr::DeviceCheckUnknown && upper != name) {
        const int upperCheck = mngr.checkDevice(upper, newName);
        if (upperCheck != TarnDeviceMngr::DeviceCheckUnknown) {
            check = upperCheck;
            name = upper;
        }
    }
    switch (check) {
        case TarnDeviceMngr::DeviceCheckValid:
            result.kind = PartNameResolution::Kind::Known;
            break;
        case TarnDeviceMngr::DeviceCheckUseNewName:
            result.kind = PartNameResolution::Kind::Renamed;
            result.replacement = newName;
            break;
        case TarnDeviceMngr::DeviceCheckReplacementRecommended:
            result.kind = PartNameResolution::Kind::NotRecommended;
            result.replacement = newName;
            break;
        default:
            result.kind = PartNameResolution::Kind::Unknown;
            result.suggestions = near;
            break;
    }
    result.part = name;
    return result;
}

}  // namespace devctrl
