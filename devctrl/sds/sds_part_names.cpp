// SPDX-License-Identifier: MIT
#include <cctype>

#include "devctrl/sds/data_error.h"
#include "devctrl/sds/devstatus_flags.h"
#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

char TarnSDSFile::partConditionLetter(char condition) {
    // Automotive parts carry the letter E in their names; the condition
    // column still says AUTO.
    return (condition == 'A' || condition == 'a') ? 'E' : condition;
}

std::string TarnSDSFile::getShortPackage(const std::string& device,
                                         const std::string& package) const {
    auto aliases = m_pkgAlias.find(package);
    if (aliases == m_pkgAlias.end())
        return package;
    int index =
        util::parseString<int>(internalGetDevPkgItemValue("PKGIndex", device, package, "0"));
    if (index >= static_cast<int>(aliases->second.size()))
        return package;
    // A negative index is bad data: reported with the record that holds it,
    // not papered over.
    if (index < 0)
        throw itemError(locateDevPkgItem("PKGIndex", device, package).origin, device, package,
                        "PKGIndex " + std::to_string(index) + " is negative");
    return aliases->second[static_cast<std::size_t>(index)];
}

std::string TarnSDSFile::createPart(const std::string& device, const std::string& speed,
                                    const std::string& package, char condition,
                                    const std::string& suffix) const {
    return partNameOf(device, speed, getShortPackage(device, package), condition, suffix);
}

std::string TarnSDSFile::partNameOf(const std::string& device, const std::string& speed,
                                    const std::string& shortPackage, char condition,
                                    const std::string& suffix) {
    std::string part;
    part.reserve(device.size() + speed.size() + shortPackage.size() + suffix.size() + 2);
    part += device;
    part += '-';
    part += speed;
    part += shortPackage;
    part += partConditionLetter(condition);
    part += suffix;
    for (char& c : part)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return part;
}

std::string TarnSDSFile::createInnerPart(std::string device, std::string /*speed*/,
                                         std::string package, const std::string& suffix) const {
    // The inner name is shared by every speed grade, hence the fixed "xx".
    return util::toUpper(device + "-" + "xx" + getShortPackage(device, package) + suffix);
}

bool TarnSDSFile::getNameByPart(const std::string& part, std::string& device, std::string& package,
                                std::string& speed, std::string& condition) const {
    auto row = m_genericDevices.m_datas.find(part);
    if (row == m_genericDevices.m_datas.end())
        return false;
    return getNameByRow(row->second, device, package, speed, condition);
}

bool TarnSDSFile::getNameByRow(const std::vector<std::string>& cells, std::string& device,
                               std::string& package, std::string& speed,
                               std::string& condition) const {
    const NameColumns columns = nameColumnsOf(m_genericDevices);
    if (!columns.complete())
        return false;
    // Range-checked on purpose: a short row is broken data and must not pass
    // as an empty field.
    const std::string& deviceCell = cells.at(columns.device);
    const std::string& packageCell = cells.at(columns.package);
    const std::string& speedCell = cells.at(columns.speed);
    const std::string& conditionCell = cells.at(columns.condition);
    device = deviceCell;
    package = packageCell;
    speed = speedCell;
    condition = conditionCell;
    return true;
}

bool TarnSDSFile::isObsDevice(const std::string& part) const {
    const std::string status = getItemValue("Status", part, "");
    if (status.empty())
        return false;
    return (DEVSTATUS_FLAGS::toDevStatusFlag(status) & DEVSTATUS_FLAGS::OBSOLETE) != 0;
}

std::string TarnSDSFile::getFullConditionName(char condition) {
    switch (std::toupper(static_cast<unsigned char>(condition))) {
        case 'I':
            return "IND";
        case 'C':
            return "COM";
        case 'A':
            return "AUTO";
        default:
            return "";
    }
}

}  // namespace tarn::vyxpn
