// SPDX-License-Identifier: MIT
// Full part names from their fields, inner device names for the back-end
// tools, and the translation of renamed, migrated and not recommended devices.

#include <string.h>

#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/name_columns.h"
#include "devctrl/sds/part_index.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/profile.h"
#include "devctrl/util/string_utils.h"
#include "platform/base_settings.h"
#include "platform/data_file.h"

namespace tarn::vyxpn {

namespace {

// Sections of the device name list and the answer each gives.
constexpr const char* kNameListFile = "pqrndev.lst";
constexpr const char* kRenamedSection = "Name Transfer";
constexpr const char* kMigratedSection = "MIGRATION";
constexpr const char* kNotRecommendedSection = "Not Recommend";
constexpr unsigned int kValueBufferSize = 1024;

// The value of `name` in one section; false when absent or empty.
bool lookUp(const std::string& listPath, const char* section, const std::string& name,
            std::string& value) {
    char buffer[kValueBufferSize] = {};
    unsigned int length = GetPrivateProfileString(section, name.c_str(), "", buffer,
                                                  kValueBufferSize, listPath.c_str());
    if (length == 0)
        return false;
    value.assign(buffer, strnlen(buffer, sizeof buffer));
    return true;
}

}  // namespace

std::string TarnDeviceMngr::getPartName(const std::string& pm, const std::string& device,
                                        const std::string& package, const std::string& speed,
                                        const std::string& condition) {
    TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return "";
    if (!nameColumnsOf(file->m_genericDevices).complete())
        return "";
    // Key order decides between parts that differ only in their suffix.
    const std::string* part = file->index().partByFields(device, package, speed, condition);
    return part ? *part : "";
}

bool TarnDeviceMngr::getInnerDeviceName(const std::string& part, std::string& inner) {
    std::string pm, device, package, speed, condition;
    if (!getNameByPart(part, pm, device, package, speed, condition))
        return false;
    TarnSDSFile* file = getFamilyFile(pm);
    if (!file)
        return false;
    std::string suffix = getItemValue("Suffix", part, "");
    inner = file->createInnerPart(device, speed, package, suffix);
    return true;
}

int TarnDeviceMngr::getNewFormatDeviceName(const std::string& name, std::string& newName) {
    QDir dataDir = BaseSystem::getDataPath();
    if (!dataDir.exists(kNameListFile))
        return 0;
    const std::string listPath = dataDir.filePath(kNameListFile).toLocal8Bit().toStdString();
    // The profile reader says nothing about a list it cannot use.
    if (!platform::DataFile(listPath).openOrTrace())
        return 0;

    std::string value;
    if (lookUp(listPath, kRenamedSection, name, value)) {
        newName = value;
        return 1;
    }
    // A caller that passes the old name itself as newName asks for renames
    // only: migration and not-recommended answers are then suppressed.
    const bool renamesOnly = name == newName;
    if (lookUp(listPath, kMigratedSection, name, value) && !renamesOnly) {
        newName = value;
        return 2;
    }
    if (!lookUp(listPath, kNotRecommendedSection, name, value) || renamesOnly)
        return 0;
    newName = value;
    return 3;
}

}  // namespace tarn::vyxpn
