// SPDX-License-Identifier: MIT
#include "platform/pm_record_reader.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "platform/pm_text.h"

namespace tarn::vyxpn::util {

namespace {

// Calls `take` with the fields of every record of `key` in turn; one record
// at a time, so that a long list costs no more than its longest record.
template <typename Take>
void forEachRecord(const PM_DEVKEY& keys, const char* key, Take take) {
    std::vector<std::string> fields;
    PM_DEVKEY_KEYITER it(&keys, key, ':', ',');
    for (; it.record(); it.setupNextIAndJ()) {
        fields.clear();
        for (; it.field(); it.advanceToNextJ())
            fields.emplace_back(it.field());
        take(fields);
    }
}

// The non-empty members of the ','-separated list `key`, first occurrence
// only: a name listed twice would otherwise be offered twice.
std::vector<std::string> readNameList(const PM_DEVKEY& keys, const char* key) {
    std::vector<std::string> names;
    std::unordered_set<std::string_view> seen;  // views into the iterator's records
    PM_DEVKEY_KEYITER it(&keys, key, ',', 0);
    for (; it.record(); it.setupNextIAndJ()) {
        std::string_view name = it.record();
        if (!name.empty() && seen.insert(name).second)
            names.emplace_back(name);
    }
    return names;
}

// A name within its owner (a device's package, a package's grade), as one
// hashable key, so that a device with a very long package list or a package
// with many grades costs no scan per entry.
std::string ownedName(const void* owner, const std::string& name) {
    std::string key(reinterpret_cast<const char*>(&owner), sizeof owner);
    return key + name;
}

// PACKAGES records: device, package, package, ...
void addPackages(PM_RECORD& record, const PM_DEVKEY& keys) {
    std::unordered_set<std::string> known;
    forEachRecord(keys, "PACKAGES", [&](const std::vector<std::string>& fields) {
        if (fields.empty())
            return;
        PM_DEVICE_RECORD* device = record.findDevice(fields[0]);
        if (!device)
            return;  // not in DEVICES
        for (std::size_t i = 1; i < fields.size(); ++i)
            if (!fields[i].empty() && known.insert(ownedName(device, fields[i])).second)
                device->packages.push_back(PM_PACKAGE_RECORD{fields[i], {}});
    });
}

// SPEEDS records: device, package, grade, grade, ...
void addSpeeds(PM_RECORD& record, const PM_DEVKEY& keys) {
    std::unordered_map<std::string, PM_PACKAGE_RECORD*> packages;
    for (PM_DEVICE_RECORD& device : record.devices)
        for (PM_PACKAGE_RECORD& package : device.packages)
            packages.emplace(ownedName(&device, package.name), &package);
    std::unordered_set<std::string> known;
    forEachRecord(keys, "SPEEDS", [&](const std::vector<std::string>& fields) {
        if (fields.size() < 2)
            return;
        PM_DEVICE_RECORD* device = record.findDevice(fields[0]);
        auto found = device ? packages.find(ownedName(device, fields[1])) : packages.end();
        if (found == packages.end())
            return;  // device or package not declared
        PM_PACKAGE_RECORD* package = found->second;
        for (std::size_t i = 2; i < fields.size(); ++i) {
            PM_SPEED_RECORD speed = parseSpeedGrade(fields[i]);
            if (speed.grade.empty())
                continue;
            if (known.insert(ownedName(package, speed.grade)).second)
                package->speeds.push_back(std::move(speed));
        }
    });
}

}  // namespace

PM_SPEED_RECORD parseSpeedGrade(const std::string& text) {
    PM_SPEED_RECORD speed;
    std::size_t slash = text.find('/');
    speed.grade = std::string(trimmed(std::string_view(text).substr(0, slash)));
    if (slash == std::string::npos)
        return speed;  // both conditions
    speed.conditionFlags = 0;
    for (std::size_t i = slash + 1; i < text.size(); ++i) {
        if (text[i] == 'C' || text[i] == 'c')
            speed.conditionFlags |= PM_COND_COMMERCIAL;
        if (text[i] == 'I' || text[i] == 'i')
            speed.conditionFlags |= PM_COND_INDUSTRIAL;
    }
    return speed;
}

PM_RECORD readPmRecord(const std::string& pm, const std::string& directory,
                       std::shared_ptr<const PM_DEVKEY> keys) {
    PM_RECORD record;
    record.familyNames = readNameList(*keys, "FAMILY");
    if (record.familyNames.empty())
        return record;

    record.pm = pm;
    record.directory = directory;
    record.familyName = UT_STROBJ(record.familyNames.front());
    for (std::string& name : readNameList(*keys, "DEVICES"))
        record.devices.push_back(PM_DEVICE_RECORD{std::move(name), {}, {}});
    record.indexDevices();
    addPackages(record, *keys);
    for (PM_DEVICE_RECORD& device : record.devices)
        device.indexPackages();
    addSpeeds(record, *keys);
    record.keys = std::move(keys);
    return record;
}

}  // namespace tarn::vyxpn::util
