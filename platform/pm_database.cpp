// SPDX-License-Identifier: MIT
// The part-model database. Choices the data layout leaves open, settled here:
// - Only subdirectories are candidate PMs; one counts when its family.key has
//   at least one non-empty FAMILY name.
// - A data directory that is missing or unreadable gives an empty database.
//   When DEVCTRL_DATA_DIR names a directory that does not exist, buildMe()
//   traces one line naming it; the built-in locations fall back silently. A
//   data directory that exists but cannot be listed is traced wherever its
//   path came from.
// - A subdirectory with a "device.acd" or a "<pm>.pwd" but no "family.key",
//   or whose "family.key" names no family, is traced (one line naming the
//   file) and skipped; other subdirectories without one are skipped
//   silently. A "family.key" that is there but cannot be read (no
//   permission, a directory or FIFO in its place, the PM directory itself
//   unreadable) is traced with the reason.
// - Within DEVICES, PACKAGES and SPEEDS, empty names are skipped and a name
//   given twice for the same owner is kept once (the first time).
// - Condition letters after '/' in a grade are read in either case.

#include "platform/pm_database.h"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/base_settings.h"
#include "platform/data_file.h"
#include "platform/pm_record_reader.h"
#include "platform/ut_quote.h"
#include "platform/ut_trace.h"

namespace fs = std::filesystem;

PM_DATABASE* PM_DATABASE::_database = nullptr;

namespace {

// A directory holding a device table or a part data file of its own name.
bool looksLikeFamily(const std::string& directory, const std::string& code) {
    std::error_code ignored;
    return fs::exists(directory + "/device.acd", ignored) ||
           fs::exists(directory + "/" + code + ".pwd", ignored);
}

// Positions of `records` in the order of their names.
template <typename Record>
std::vector<std::uint32_t> sortedByName(const std::vector<Record>& records) {
    std::vector<std::uint32_t> positions(records.size());
    for (std::uint32_t i = 0; i < positions.size(); ++i)
        positions[i] = i;
    std::sort(positions.begin(), positions.end(),
              [&](std::uint32_t a, std::uint32_t b) { return records[a].name < records[b].name; });
    return positions;
}

// The position of the record named `name`, or -1.
template <typename Record>
long findByName(const std::vector<Record>& records, const std::vector<std::uint32_t>& positions,
                const std::string& name) {
    auto found = std::lower_bound(
        positions.begin(), positions.end(), name,
        [&](std::uint32_t at, const std::string& wanted) { return records[at].name < wanted; });
    if (found == positions.end() || records[*found].name != name)
        return -1;
    return static_cast<long>(*found);
}

}  // namespace

void PM_RECORD::indexDevices() {
    devicesByName = sortedByName(devices);
}

PM_DEVICE_RECORD* PM_RECORD::findDevice(const std::string& name) {
    long at = findByName(devices, devicesByName, name);
    return at < 0 ? nullptr : &devices[static_cast<std::size_t>(at)];
}

const PM_DEVICE_RECORD* PM_RECORD::findDevice(const std::string& name) const {
    return const_cast<PM_RECORD*>(this)->findDevice(name);
}

void PM_DEVICE_RECORD::indexPackages() {
    packagesByName = sortedByName(packages);
}

const PM_PACKAGE_RECORD* PM_DEVICE_RECORD::findPackage(const std::string& name) const {
    long at = findByName(packages, packagesByName, name);
    return at < 0 ? nullptr : &packages[static_cast<std::size_t>(at)];
}

PM_DATABASE* PM_DATABASE::buildMe() {
    if (!_database) {
        QDir dataDir = BaseSystem::getDataPath();
        std::string path = dataDir.absolutePath().toStdString();
        // A data directory the user named explicitly but that is not there is
        // worth one line; the default locations fall back silently.
        // (Something that is there but is no readable directory is reported
        // by the constructor, wherever the path came from.)
        const char* fromEnv = std::getenv("DEVCTRL_DATA_DIR");
        std::error_code ignored;
        if (fromEnv && *fromEnv && !fs::exists(path, ignored))
            diagTrace("data directory does not exist:",
                      tarn::vyxpn::util::escapedForMessage(path).c_str());
        _database = new PM_DATABASE(path);
    }
    return _database;
}

PM_DATABASE::PM_DATABASE(const std::string& dataPath) : m_dataPath(dataPath) {
    std::error_code error;
    fs::path root = fs::absolute(dataPath, error).lexically_normal();
    if (error)
        return;

    // Directory entries come in no particular order; PM codes are sorted
    // byte-wise so that every walk over the PMs is reproducible.
    std::vector<std::string> codes;
    for (fs::directory_iterator it(root, error), end; !error && it != end; it.increment(error)) {
        std::error_code ignored;
        if (it->is_directory(ignored))
            codes.push_back(it->path().filename().string());
    }
    if (error) {
        // A missing directory is buildMe's to report (or a silent fallback);
        // one that is there but cannot be listed is always worth a line.
        std::error_code ignored;
        if (fs::exists(root, ignored)) {
            std::string message = "data directory cannot be read: " +
                                  tarn::vyxpn::util::escapedForMessage(root.string()) + " (" +
                                  error.message() + ")";
            diagTrace(message.c_str(), nullptr);
        }
    }
    std::sort(codes.begin(), codes.end());

    for (const std::string& code : codes) {
        std::string directory = (root / code).string();
        std::string keyFile = directory + "/family.key";
        // Opened without blocking; a FIFO, a directory or a file that cannot
        // be read is named with the reason.
        tarn::vyxpn::platform::DataFile keyData(keyFile);
        std::string text;
        if (!keyData.isOpen() || !keyData.readAll(text)) {
            // Any directory may sit in the data directory; only one that
            // holds a family's other files is a family missing its key data.
            if (!keyData.missing()) {
                std::string message = keyData.failure() + "; family directory skipped";
                diagTrace(message.c_str(), nullptr);
            } else if (looksLikeFamily(directory, code)) {
                std::string message = tarn::vyxpn::util::escapedForMessage(keyFile) +
                                      ": missing; family directory skipped";
                diagTrace(message.c_str(), nullptr);
            }
            continue;
        }
        PM_RECORD record = tarn::vyxpn::util::readPmRecord(
            code, directory, std::make_shared<const PM_DEVKEY>(PM_DEVKEY::fromText(text, keyFile)));
        if (record.familyNames.empty()) {
            std::string message = tarn::vyxpn::util::escapedForMessage(keyFile) +
                                  ": no FAMILY name; family directory skipped";
            diagTrace(message.c_str(), nullptr);
            continue;  // not an installed PM
        }
        m_byPm.emplace(code, m_pms.size());
        m_pms.push_back(std::move(record));
    }
    traceSharedFamilyNames();
}

void PM_DATABASE::traceSharedFamilyNames() const {
    // A family name selects the first PM (in PM order) that lists it; a later
    // PM naming it too is never reached through it, which is worth a line.
    std::map<std::string, const PM_RECORD*> owners;  // folded name -> first PM
    for (const PM_RECORD& record : m_pms) {
        for (const std::string& name : record.familyNames) {
            std::string folded = name;
            for (char& c : folded)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            auto [owner, first] = owners.emplace(folded, &record);
            if (first || owner->second == &record)
                continue;
            const std::string message =
                tarn::vyxpn::util::escapedForMessage(record.directory + "/family.key") +
                ": FAMILY " + tarn::vyxpn::util::escapedForMessage(name) +
                " is already the family of " +
                tarn::vyxpn::util::escapedForMessage(owner->second->pm) + " (" +
                tarn::vyxpn::util::escapedForMessage(owner->second->directory + "/family.key") +
                "), which keeps it";
            diagTrace(message.c_str(), nullptr);
        }
    }
}

const PM_RECORD* PM_DATABASE::findPm(const char* pm, unsigned int /*flags*/) const {
    if (!pm)
        return nullptr;
    auto found = m_byPm.find(pm);
    return found == m_byPm.end() ? nullptr : &m_pms[found->second];
}

const PM_RECORD* PM_DATABASE::findFamily(const char* family) const {
    if (!family)
        return nullptr;
    for (const PM_RECORD& record : m_pms)
        for (const std::string& name : record.familyNames)
            if (strcasecmp(name.c_str(), family) == 0)
                return &record;
    return nullptr;
}

std::vector<std::string> PM_DATABASE::installedFamilies() const {
    std::vector<std::string> families;
    for (const PM_RECORD& record : m_pms)
        families.insert(families.end(), record.familyNames.begin(), record.familyNames.end());
    return families;
}
