#include <set>
#include <unordered_set>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {

// Fixed leading columns of the part table. The two methods differ in order on
// purpose; readers always go by column name.
const std::vector<std::string> kAutoColumns{"Device",       "Speed",     "Package",
                                            "ShortPackage", "Condition", "Suffix"};
const std::vector<std::string> kListedColumns{"Device", "Package", "Speed", "Condition", "Suffix"};
// A listed part row holds device, package, speed, condition, suffix and at
// least one item value; shorter rows end the listing.
constexpr std::size_t kListedRowMinimum = 6;
constexpr std::size_t kListedFieldCount = 5;

std::string deviceInfoKey(const std::string& device, const std::string& package) {
    return device + "_" + package;
}

void setPartColumns(const TarnSDSFile& file, const std::vector<std::string>& fixed,
                    TarnSDSFileSection& parts) {
    std::vector<std::string> customItems;
    file.getCustomItems(customItems);
    parts.m_items = fixed;
    parts.m_items.insert(parts.m_items.end(), customItems.begin(), customItems.end());
}

// The custom item values of one part: what the part's own row says, else the
// device/package/family value, "?" when nobody says anything.
void appendCustomItems(const TarnSDSFile& file, std::size_t firstCustom, const std::string& part,
                       const std::string& device, const std::string& package,
                       std::vector<std::string>& row) {
    const auto& columns = file.m_genericDevices.m_items;
    for (std::size_t i = firstCustom; i < columns.size(); ++i) {
        std::string value = file.internalGetPartItemValue(columns[i], part, "");
        if (value.empty())
            value = file.internalGetDevPkgItemValue(columns[i], device, package, "?");
        row.push_back(std::move(value));
    }
}

// Column labels of the resource table: a resource's label, or its own name.
void setResourceColumns(TarnSDSFile& file) {
    file.m_deviceInfo.m_items.clear();
    for (const std::string& item : file.m_resourceItems) {
        auto label = file.m_resourceLabels.find(item);
        file.m_deviceInfo.m_items.push_back(label != file.m_resourceLabels.end() ? label->second
                                                                                 : item);
    }
}

void appendResourceRow(TarnSDSFile& file, const std::string& device, const std::string& package) {
    std::vector<std::string>& row = file.m_deviceInfo.m_datas[deviceInfoKey(device, package)];
    for (const std::string& item : file.m_resourceItems)
        row.push_back(file.internalGetDevPkgItemValue(item, device, package, "-"));
}

// Suffixes of a device and package: the "ES" item cut at '|', with "No"
// standing for "no suffix". Without the item the suffix is "?".
std::vector<std::string> suffixesOf(const TarnSDSFile& file, const std::string& device,
                                    const std::string& package) {
    std::vector<std::string> suffixes =
        util::split(file.internalGetDevPkgItemValue("ES", device, package, "?"), "|");
    for (std::string& suffix : suffixes)
        if (util::toLower(suffix) == "no")
            suffix.clear();
    return suffixes;
}

std::string shortCode(const TarnSDSFile& file, const std::string& device,
                      const std::string& package, char condition, const std::string& suffix) {
    std::string code = file.getShortPackage(device, package);
    code += (condition == 'A' || condition == 'a') ? 'E' : condition;
    return code + suffix;
}

}  // namespace

void TarnSDSFile::buildDatabase() {
    if (util::toLower(m_partGenerateMethod) == "opn")
        _buildDatabase_opn();
    else
        _buildDatabase_auto();
}

// Every combination of the base part-model lists, filtered by the exception
// lists, or, when the family lists parts, by that list alone.
void TarnSDSFile::_buildDatabase_auto() {
    invalidateIndexes();
    m_genericDevices.clear();
    m_deviceInfo.clear();
    setPartColumns(*this, kAutoColumns, m_genericDevices);

    std::vector<std::string> devices;
    TarnDeviceMngr::baseGetDevices(m_pm, devices);
    const bool listedMode = !m_partSection.m_datas.empty();
    const std::unordered_set<std::string> deviceExceptions(m_deviceExceptions.begin(),
                                                           m_deviceExceptions.end());
    const std::set<std::pair<std::string, std::string>> packageExceptions(
        m_packageExceptions.begin(), m_packageExceptions.end());
    const std::unordered_set<std::string> partExceptions(m_partExceptions.begin(),
                                                         m_partExceptions.end());

    std::vector<std::string> packages, speeds;
    for (const std::string& device : devices) {
        if (!listedMode && deviceExceptions.count(device))
            continue;
        TarnDeviceMngr::baseGetPackages(m_pm, device, packages);
        for (const std::string& package : packages) {
            if (!listedMode && packageExceptions.count({device, package}))
                continue;
            const std::vector<std::string> suffixes = suffixesOf(*this, device, package);
            const std::string conditions =
                internalGetDevPkgItemValue("Condition", device, package, "IC");
            TarnDeviceMngr::baseGetSpeeds(m_pm, device, package, speeds);
            for (const std::string& speed : speeds) {
                for (char condition : conditions) {
                    for (const std::string& suffix : suffixes) {
                        const std::string part =
                            createPart(device, speed, package, condition, suffix);
                        if (listedMode ? m_partSection.m_datas.count(part) == 0
                                       : partExceptions.count(part) != 0)
                            continue;
                        std::vector<std::string> row{
                            device,
                            speed,
                            package,
                            shortCode(*this, device, package, condition, suffix),
                            getFullConditionName(condition),
                            suffix};
                        appendCustomItems(*this, kAutoColumns.size(), part, device, package, row);
                        m_genericDevices.m_datas[part] = std::move(row);
                    }
                }
            }
        }
    }

    // Resources exist per device and package whether parts are listed or not,
    // so excluded devices stay out here even in listed mode.
    setResourceColumns(*this);
    for (const std::string& device : devices) {
        if (deviceExceptions.count(device))
            continue;
        TarnDeviceMngr::baseGetPackages(m_pm, device, packages);
        for (const std::string& package : packages)
            if (!packageExceptions.count({device, package}))
                appendResourceRow(*this, device, package);
    }
}

// The parts exactly as listed: each part row starts with device, package,
// speed, condition and suffix; the item values follow.
void TarnSDSFile::_buildDatabase_opn() {
    invalidateIndexes();
    m_genericDevices.clear();
    m_deviceInfo.clear();
    setPartColumns(*this, kListedColumns, m_genericDevices);

    for (auto& [part, loaded] : m_partSection.m_datas) {
        if (loaded.size() < kListedRowMinimum)
            break;
        const std::string device = loaded[0];
        const std::string package = loaded[1];
        const std::string speed = loaded[2];
        const std::string condition = loaded[3];
        const std::string suffix = loaded[4];
        std::vector<std::string> row{device, package, speed, getFullConditionName(condition.at(0)),
                                     suffix};
        // The item columns of a listed part name the values after the five
        // fields; drop the fields so lookups by column name line up.
        loaded.erase(loaded.begin(), loaded.begin() + kListedFieldCount);
        appendCustomItems(*this, kListedColumns.size(), part, device, package, row);
        m_genericDevices.m_datas[part] = std::move(row);
    }

    setResourceColumns(*this);
    std::vector<std::string> devices, packages;
    TarnDeviceMngr::baseGetDevices(m_pm, devices);
    for (const std::string& device : devices) {
        TarnDeviceMngr::baseGetPackages(m_pm, device, packages);
        for (const std::string& package : packages)
            appendResourceRow(*this, device, package);
    }
}

}  // namespace tarn::vyxpn
