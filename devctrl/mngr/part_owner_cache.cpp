// SPDX-License-Identifier: MIT
#include "devctrl/mngr/part_owner_cache.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <system_error>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "platform/base_settings.h"
#include "platform/file_writer.h"

namespace tarn::vyxpn {

namespace fs = std::filesystem;

// One name: where its bytes are in the name area, and its owner's number.
struct PartOwnerCache::Record {
    std::uint32_t offset;
    std::uint16_t length;
    std::uint16_t pm;
};

namespace {

// "devctrl part owners", version 1, and the byte order it was written in.
constexpr std::uint64_t kMagic = 0x31574f5043544344ULL;  // "DCTCPOW1"

std::string dataDirectory() {
    return BaseSystem::getDataPath().absolutePath().toStdString();
}

std::int64_t modifiedNs(const struct stat& info) {
    return static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
}

void appendRaw(std::string& out, const void* data, std::size_t size) {
    out.append(static_cast<const char*>(data), size);
}

template <class T>
bool readRaw(const char* base, std::size_t size, std::size_t& at, T& value) {
    if (size - at < sizeof(T) || at > size)
        return false;
    std::memcpy(&value, base + at, sizeof(T));
    at += sizeof(T);
    return true;
}

}  // namespace

std::string dataDirectoryStamp() {
    const std::string root = dataDirectory();
    std::error_code error;
    fs::recursive_directory_iterator walk(root, error);
    if (error)
        return {};
    // Sorted, so that the order the directory lists its entries in does not
    // count as a change.
    std::map<std::string, std::string> files;
    for (; walk != fs::recursive_directory_iterator(); walk.increment(error)) {
        if (error)
            return {};
        struct stat info {};
        if (::stat(walk->path().c_str(), &info) != 0 || S_ISDIR(info.st_mode))
            continue;
        const std::string relative = walk->path().lexically_relative(root).string();
        // The stamp is a list of lines.
        if (relative.find('\n') != std::string::npos)
            return {};
        files[relative] = std::to_string(info.st_size) + ' ' + std::to_string(modifiedNs(info));
    }
    std::string stamp = "data " + root + '\n';
    // Families switched off on purpose load when this is set, which changes
    // who owns what.
    if (std::getenv("TARN_SHOW_ALL_DEVICES"))
        stamp += "show-all\n";
    for (const auto& [name, sizeAndTime] : files)
        stamp += "file " + sizeAndTime + ' ' + name + '\n';
    return stamp;
}

std::string PartOwnerCache::path() {
    const QString directory = BaseSystem::getCacheDir();
    if (directory.isEmpty())
        return {};
    // One file per data directory, so that switching between installations
    // does not rebuild each time.
    const std::size_t hash = std::hash<std::string>{}(dataDirectory());
    std::ostringstream name;
    name << "/part-owners-" << std::hex << hash << ".idx";
    return directory.toStdString() + name.str();
}

PartOwnerCache::PartOwnerCache() : PartOwnerCache(dataDirectoryStamp()) {}

PartOwnerCache::PartOwnerCache(const std::string& stamp) {
    if (!stamp.empty() && !open(stamp))
        m_base = nullptr;
}

PartOwnerCache::~PartOwnerCache() {
    if (m_map)
        ::munmap(m_map, m_mapSize);
}

bool PartOwnerCache::open(const std::string& stamp) {
    const std::string file = path();
    if (file.empty())
        return false;
    // Without blocking: a FIFO in the file's place must not hold the tool
    // until someone writes to it; it is then refused as not a regular file.
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size < 16) {
        ::close(fd);
        return false;
    }
    m_mapSize = static_cast<std::size_t>(info.st_size);
    void* map = ::mmap(nullptr, m_mapSize, PROT_READ, MAP_PRIVATE, fd, 0);
    ::close(fd);
    if (map == MAP_FAILED)
        return false;
    m_map = map;
    const char* base = static_cast<const char*>(map);

    std::size_t at = 0;
    std::uint64_t magic = 0, textSize = 0, count = 0, namesSize = 0;
    if (!readRaw(base, m_mapSize, at, magic) || magic != kMagic ||
        !readRaw(base, m_mapSize, at, textSize) || textSize > m_mapSize - at)
        return false;
    if (!readHeader(std::string_view(base + at, textSize), stamp))
        return false;
    at += textSize;
    at = (at + 7) & ~std::size_t{7};
    if (!readRaw(base, m_mapSize, at, count) || !readRaw(base, m_mapSize, at, namesSize))
        return false;
    // The records and the names fill the rest exactly: a short or padded
    // file is not this writer's.
    if (count > (m_mapSize - at) / sizeof(Record) ||
        namesSize != m_mapSize - at - count * sizeof(Record))
        return false;
    m_records = reinterpret_cast<const Record*>(base + at);
    m_count = count;
    m_names = base + at + count * sizeof(Record);
    m_namesSize = namesSize;
    m_base = base;
    return true;
}

bool PartOwnerCache::readHeader(std::string_view text, const std::string& stamp) {
    // The stamp first, then one line per PM: its code and the numbers of
    // the PMs that own names it shares.
    if (text.size() < stamp.size() || text.substr(0, stamp.size()) != stamp)
        return false;
    std::istringstream lines(std::string(text.substr(stamp.size())));
    std::string line;
    std::vector<std::vector<std::size_t>> shared;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string kind, pm;
        if (!(words >> kind >> pm) || kind != "pm")
            return false;
        m_pms.push_back(pm);
        shared.emplace_back();
        std::size_t other = 0;
        while (words >> other)
            shared.back().push_back(other);
    }
    for (const auto& owners : shared) {
        m_sharedOwners.emplace_back();
        for (std::size_t other : owners) {
            if (other >= m_pms.size())
                return false;
            m_sharedOwners.back().push_back(m_pms[other]);
        }
    }
    return true;
}

std::optional<std::string> PartOwnerCache::ownerOf(std::string_view part) const {
    if (!usable())
        return std::nullopt;
    std::size_t low = 0, high = m_count;
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const Record& record = m_records[middle];
        // Every record read is checked: a damaged file gives no owner,
        // never a read past the mapping.
        if (record.offset > m_namesSize || record.length > m_namesSize - record.offset ||
            record.pm >= m_pms.size()) {
            m_damaged = true;
            return std::nullopt;
        }
        const std::string_view name(m_names + record.offset, record.length);
        const int order = name.compare(part);
        if (order == 0)
            return m_pms[record.pm];
        if (order < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return std::nullopt;
}

StringList PartOwnerCache::ownersOfSharedNames(const std::string& pm) const {
    auto found = std::find(m_pms.begin(), m_pms.end(), pm);
    return found == m_pms.end() ? StringList{} : m_sharedOwners[found - m_pms.begin()];
}

bool PartOwnerCache::write(TarnDeviceMngr& mngr, const std::string& stamp) {
    const std::string file = path();
    if (file.empty() || stamp.empty() || !QDir().mkpath(BaseSystem::getCacheDir()))
        return false;
    const PartOwnerIndex& owners = mngr.partOwnerIndex();

    std::vector<std::string> pms;
    std::map<std::string, std::uint16_t> pmNumbers;
    for (const auto& entry : mngr.getFamilyFiles()) {
        if (pms.size() > UINT16_MAX)
            return false;
        pmNumbers[entry.first] = static_cast<std::uint16_t>(pms.size());
        pms.push_back(entry.first);
    }

    std::vector<std::pair<std::string_view, std::uint16_t>> names;
    owners.forEach([&](const std::string& name, const PartOwnerIndex::Owner& owner) {
        // A name too long for a record is left out: it is answered by a
        // full load, as an unknown name is.
        if (name.size() <= UINT16_MAX)
            names.emplace_back(name, pmNumbers.at(*owner.pm));
    });
    std::sort(names.begin(), names.end());

    // Which other PMs own names each PM holds too.
    std::vector<std::set<std::uint16_t>> shared(pms.size());
    for (const auto& [pm, family] : mngr.getFamilyFiles()) {
        if (!family)
            continue;
        const std::uint16_t self = pmNumbers.at(pm);
        for (const auto& row : family->m_genericDevices.m_datas) {
            const PartOwnerIndex::Owner* owner = owners.find(row.first);
            if (owner && *owner->pm != pm)
                shared[self].insert(pmNumbers.at(*owner->pm));
        }
    }

    std::string text = stamp;
    for (std::size_t i = 0; i < pms.size(); ++i) {
        text += "pm " + pms[i];
        for (std::uint16_t other : shared[i])
            text += ' ' + std::to_string(other);
        text += '\n';
    }

    std::string content;
    const std::uint64_t textSize = text.size();
    appendRaw(content, &kMagic, sizeof kMagic);
    appendRaw(content, &textSize, sizeof textSize);
    content += text;
    content.resize((content.size() + 7) & ~std::size_t{7}, '\0');
    std::uint64_t namesSize = 0;
    std::vector<Record> records;
    records.reserve(names.size());
    for (const auto& [name, pm] : names) {
        if (namesSize + name.size() > UINT32_MAX)
            return false;
        records.push_back(
            {static_cast<std::uint32_t>(namesSize), static_cast<std::uint16_t>(name.size()), pm});
        namesSize += name.size();
    }
    const std::uint64_t count = records.size();
    appendRaw(content, &count, sizeof count);
    appendRaw(content, &namesSize, sizeof namesSize);
    appendRaw(content, records.data(), records.size() * sizeof(Record));
    for (const auto& entry : names)
        content += entry.first;

    // Written under a name of its own and renamed over the old file: a
    // reader has the old file mapped, or the new one, never half of either.
    const std::string temporary = file + ".new." + std::to_string(::getpid());
    if (!platform::writeWholeFile(temporary, content))
        return false;
    if (::rename(temporary.c_str(), file.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    return true;
}

std::optional<StringList> familiesForParts(const PartOwnerCache& cache, const StringList& parts) {
    std::set<std::string> needed;
    for (const std::string& part : parts) {
        std::optional<std::string> owner = cache.ownerOf(part);
        if (!owner)
            return std::nullopt;
        needed.insert(*owner);
    }
    return StringList(needed.begin(), needed.end());
}

std::optional<StringList> familiesForPm(const std::string& pmOrFamily,
                                        const PartOwnerCache* sharedNames) {
    // The names a PM question tries, as a full load's manager would: the
    // PM code as given, then the PM of a family name.
    StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    std::set<std::string> needed;
    if (std::find(installed.begin(), installed.end(), pmOrFamily) != installed.end())
        needed.insert(pmOrFamily);
    const std::string pm = TarnDeviceMngr::baseFamilyToPm(pmOrFamily);
    if (!pm.empty())
        needed.insert(pm);
    // Not installed: the answer names the nearest of every loaded family.
    if (needed.empty())
        return std::nullopt;
    if (sharedNames) {
        if (!sharedNames->usable())
            return std::nullopt;
        for (const std::string& each : std::set<std::string>(needed))
            for (const std::string& owner : sharedNames->ownersOfSharedNames(each))
                needed.insert(owner);
    }
    return StringList(needed.begin(), needed.end());
}

}  // namespace tarn::vyxpn
