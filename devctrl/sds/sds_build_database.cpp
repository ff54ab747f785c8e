// SPDX-License-Identifier: MIT
#include <set>
#include <unordered_set>

#include "devctrl/sds/base_lists.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"
#include "platform/ut_trace.h"

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

void setPartColumns(const TarnSDSFile& file, const std::vector<std::string>& fixed,
                    TarnSDSFileSection& parts) {
    std::vector<std::string> customItems;
    file.getCustomItems(customItems);
    parts.m_items = fixed;
    parts.m_items.insert(parts.m_items.end(), customItems.begin(), customItems.end());
}

// The custom item values of the parts of one device and package: what a
// part's own row says, else the device/package/family value, "?" when nobody
// says anything. The device/package values are looked up once for all the
// parts that share them; a family builds hundreds of thousands of rows.
class CustomItemValues {
  public:
    CustomItemValues(const TarnSDSFile& file, std::size_t firstCustom)
        : m_file(file), m_firstCustom(firstCustom) {
        const auto& columns = file.m_genericDevices.m_items;
        for (std::size_t i = firstCustom; i < columns.size(); ++i)
            m_partColumns.push_back(file.m_partSection.columnOf(columns[i]));
    }

    void startDevicePackage(const std::string& device, const std::string& package) {
        const auto& columns = m_file.m_genericDevices.m_items;
        m_devicePackageValues.clear();
        for (std::size_t i = m_firstCustom; i < columns.size(); ++i)
            m_devicePackageValues.push_back(
                m_file.internalGetDevPkgItemValue(columns[i], device, package, "?"));
    }

    void append(const std::string& part, std::vector<std::string>& row) const {
        const std::vector<std::string>* own = nullptr;
        if (!m_file.m_partSection.m_datas.empty()) {
            auto found = m_file.m_partSection.m_datas.find(part);
            if (found != m_file.m_partSection.m_datas.end())
                own = &found->second;
        }
        for (std::size_t i = 0; i < m_devicePackageValues.size(); ++i) {
            const int column = m_partColumns[i];
            const std::string* value = nullptr;
            if (own && column >= 0 && static_cast<std::size_t>(column) < own->size() &&
                !(*own)[column].empty())
                value = &(*own)[column];
            row.push_back(value ? *value : m_devicePackageValues[i]);
        }
    }

  private:
    const TarnSDSFile& m_file;
    std::size_t m_firstCustom;
    std::vector<int> m_partColumns;
    std::vector<std::string> m_devicePackageValues;
};

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
    std::vector<std::string>& row = file.m_deviceInfo.m_datas[devicePackageKey(device, package)];
    for (const std::string& item : file.m_resourceItems)
        row.push_back(file.internalGetDevPkgItemValue(item, device, package, "-"));
}

// Suffixes of a device and package: the "ES" item cut at '|', with "No"
// standing for "no suffix". Without the item the suffix is "?" and
// `missing` is set.
std::vector<std::string> suffixesOf(const TarnSDSFile& file, const std::string& device,
                                    const std::string& package, bool& missing) {
    bool found = false;
    const std::string value = file._internalGetDevPkgItemValue(found, "ES", device, package, "");
    missing = value.empty();
    std::vector<std::string> suffixes = util::split(missing ? "?" : value, "|");
    for (std::string& suffix : suffixes)
        if (util::toLower(suffix) == "no")
            suffix.clear();
    return suffixes;
}

// Parts named like ZR4-6Q48C? almost always come from a device table cut
// short; said once per device and package, naming the file.
void traceMissingSuffix(const TarnSDSFile& file, const std::string& tablePath,
                        const std::string& device, const std::string& package,
                        const std::string& part) {
    const std::string message =
        util::escapedForMessage(tablePath.empty() ? "device.acd of " + file.m_pm : tablePath) +
        ": no ES value for " + util::escapedForMessage(device) + ", " +
        util::escapedForMessage(package) + ": its parts are named like " +
        util::escapedForMessage(part);
    diagTrace(message.c_str(), nullptr);
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
    pmDevices(m_pm, devices);
    const bool listedMode = !m_partSection.m_datas.empty();
    const std::unordered_set<std::string> deviceExceptions(m_deviceExceptions.begin(),
                                                           m_deviceExceptions.end());
    const std::set<std::pair<std::string, std::string>> packageExceptions(
        m_packageExceptions.begin(), m_packageExceptions.end());
    const std::unordered_set<std::string> partExceptions(m_partExceptions.begin(),
                                                         m_partExceptions.end());

    CustomItemValues customItems(*this, kAutoColumns.size());
    const std::size_t columnCount = m_genericDevices.m_items.size();
    const std::string tablePath = deviceTablePath();
    TraceFileLimit traceLimit(tablePath);
    std::vector<std::string> packages, speeds;
    for (const std::string& device : devices) {
        if (!listedMode && deviceExceptions.count(device))
            continue;
        pmPackages(m_pm, device, packages);
        for (const std::string& package : packages) {
            if (!listedMode && packageExceptions.count({device, package}))
                continue;
            bool suffixMissing = false;
            const std::vector<std::string> suffixes =
                suffixesOf(*this, device, package, suffixMissing);
            const std::string conditions =
                internalGetDevPkgItemValue("Condition", device, package, "IC");
            const std::string shortPackage = getShortPackage(device, package);
            customItems.startDevicePackage(device, package);
            pmSpeeds(m_pm, device, package, speeds);
            for (const std::string& speed : speeds) {
                for (char condition : conditions) {
                    for (const std::string& suffix : suffixes) {
                        std::string part =
                            partNameOf(device, speed, shortPackage, condition, suffix);
                        if (listedMode ? m_partSection.m_datas.count(part) == 0
                                       : partExceptions.count(part) != 0)
                            continue;
                        std::vector<std::string> row;
                        row.reserve(columnCount);
                        row.push_back(device);
                        row.push_back(speed);
                        row.push_back(package);
                        row.push_back(shortPackage + partConditionLetter(condition) + suffix);
                        row.push_back(getFullConditionName(condition));
                        row.push_back(suffix);
                        customItems.append(part, row);
                        if (suffixMissing) {
                            traceMissingSuffix(*this, tablePath, device, package, part);
                            suffixMissing = false;
                        }
                        m_genericDevices.m_datas.insert_or_assign(std::move(part), std::move(row));
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
        pmPackages(m_pm, device, packages);
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

    CustomItemValues customItems(*this, kListedColumns.size());
    std::string customDevice, customPackage;
    bool customStarted = false;  // the first part may have empty fields
    for (auto& [part, loaded] : m_partSection.m_datas) {
        if (loaded.size() < kListedRowMinimum)
            break;
        const std::string device = loaded[0];
        const std::string package = loaded[1];
        const std::string speed = loaded[2];
        const std::string condition = loaded[3];
        const std::string suffix = loaded[4];
        if (condition.empty())
            throw dataError("PART_DATAS", part, "no condition");
        std::vector<std::string> row;
        row.reserve(m_genericDevices.m_items.size());
        row.insert(row.end(), {device, package, speed, getFullConditionName(condition[0]), suffix});
        // The item columns of a listed part name the values after the five
        // fields; drop the fields so lookups by column name line up.
        loaded.erase(loaded.begin(), loaded.begin() + kListedFieldCount);
        if (!customStarted || device != customDevice || package != customPackage) {
            customStarted = true;
            customItems.startDevicePackage(device, package);
            customDevice = device;
            customPackage = package;
        }
        customItems.append(part, row);
        m_genericDevices.m_datas[part] = std::move(row);
    }

    setResourceColumns(*this);
    std::vector<std::string> devices, packages;
    pmDevices(m_pm, devices);
    for (const std::string& device : devices) {
        pmPackages(m_pm, device, packages);
        for (const std::string& package : packages)
            appendResourceRow(*this, device, package);
    }
}

}  // namespace tarn::vyxpn
