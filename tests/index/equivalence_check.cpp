#include "index/equivalence_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "devctrl/mngr/comparators.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"
#include "index/reference_walks.h"

using tarn::vyxpn::PartListKind;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;
using Strings = std::vector<std::string>;

namespace devctrl_test {

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    if (!answer.thrown.empty())
        return out << "threw " << answer.thrown;
    out << "{";
    for (std::size_t i = 0; i < answer.values.size(); ++i)
        out << (i ? ", \"" : "\"") << answer.values[i] << "\"";
    return out << "}";
}

namespace {

// A list the query must replace, or leave alone when the family cannot answer.
const Strings kUntouched{"<untouched>"};

constexpr std::array<std::pair<bool, bool>, 4> kFilters{
    {{false, false}, {true, false}, {false, true}, {true, true}}};

// The cells of a row as far as it has them; "" stands in for a missing one
// (the walks then see a short row, and a query for "" is a fair question).
std::string cellOr(const Strings& row, int column) {
    return column >= 0 && static_cast<std::size_t>(column) < row.size() ? row[column] : "";
}

struct FieldSets {
    std::set<std::string> devices;
    std::set<std::pair<std::string, std::string>> devicePackages;
    std::set<std::tuple<std::string, std::string, std::string>> deviceSpeeds;
    std::set<std::array<std::string, 4>> names;
};

// Every stride-th element of a set, the first one always.
template <typename T>
std::vector<T> everyNth(const std::set<T>& all, std::size_t stride) {
    std::vector<T> kept;
    std::size_t position = 0;
    for (const T& value : all)
        if (position++ % stride == 0)
            kept.push_back(value);
    return kept;
}

FieldSets fieldSetsOf(const TarnSDSFile& file) {
    const auto& table = file.m_genericDevices;
    const int d = table.columnOf("Device"), p = table.columnOf("Package"),
              s = table.columnOf("Speed"), c = table.columnOf("Condition");
    FieldSets sets;
    for (const auto& entry : table.m_datas) {
        const Strings& row = entry.second;
        sets.devices.insert(cellOr(row, d));
        sets.devicePackages.emplace(cellOr(row, d), cellOr(row, p));
        sets.deviceSpeeds.emplace(cellOr(row, d), cellOr(row, p), cellOr(row, s));
        sets.names.insert({cellOr(row, d), cellOr(row, p), cellOr(row, s), cellOr(row, c)});
    }
    sets.devices.insert("NO-SUCH");
    sets.devicePackages.emplace("NO-SUCH", "QF48");
    sets.deviceSpeeds.emplace("NO-SUCH", "QF48", "6");
    if (!table.m_datas.empty()) {
        // Known leading cells with an unknown last one.
        const Strings& row = table.m_datas.begin()->second;
        sets.devicePackages.emplace(cellOr(row, d), "NO-SUCH");
        sets.deviceSpeeds.emplace(cellOr(row, d), cellOr(row, p), "NO-SUCH");
    }
    return sets;
}

// The library's list of `kind`, family-level and as the manager sorts it.
Answer libraryFamilyList(const TarnSDSFile& file, PartListKind kind, const std::string& device,
                         const std::string& package, const std::string& speed, bool withObsolete,
                         bool ascOnly) {
    return answerOf([&] {
        Strings list = kUntouched;
        switch (kind) {
            case PartListKind::Devices:
                file.getDevices(list, withObsolete, ascOnly);
                break;
            case PartListKind::Packages:
                file.getPackages(device, list, withObsolete, ascOnly);
                break;
            case PartListKind::Speeds:
                file.getSpeeds(device, package, list, withObsolete, ascOnly);
                break;
            case PartListKind::Conditions:
                file.getOperations(device, package, speed, list, withObsolete, ascOnly);
                break;
        }
        return list;
    });
}

Answer librarySortedList(TarnDeviceMngr& mngr, const std::string& pm, PartListKind kind,
                         const std::string& device, const std::string& package,
                         const std::string& speed, bool withObsolete, bool ascOnly) {
    return answerOf([&] {
        Strings list = kUntouched;
        switch (kind) {
            case PartListKind::Devices:
                mngr.getDevices(pm, list, withObsolete, ascOnly);
                break;
            case PartListKind::Packages:
                mngr.getPackages(pm, device, list, withObsolete, ascOnly);
                break;
            case PartListKind::Speeds:
                mngr.getSpeeds(pm, device, package, list, withObsolete, ascOnly);
                break;
            case PartListKind::Conditions:
                mngr.getOperations(pm, device, package, speed, list, withObsolete, ascOnly);
                break;
        }
        return list;
    });
}

const char* kindName(PartListKind kind) {
    static const char* const names[] = {"devices", "packages", "speeds", "conditions"};
    return names[static_cast<int>(kind)];
}

// One list query, both ways. The sorted reference is the walk's list sorted.
std::size_t expectListMatches(TarnDeviceMngr& mngr, const TarnSDSFile& file, PartListKind kind,
                              const std::string& device, const std::string& package,
                              const std::string& speed, bool withObsolete, bool ascOnly) {
    const Answer walked = answerOf([&] {
        Strings list = kUntouched;
        ref::familyList(file, kind, device, package, speed, list, withObsolete, ascOnly);
        return list;
    });
    Answer walkedSorted = walked;
    ref::sortAsShown(kind, walkedSorted.values);

    const std::string where = file.m_pm + " " + kindName(kind) + " of [" + device + "|" + package +
                              "|" + speed + "] withObsolete=" + std::to_string(withObsolete) +
                              " ascOnly=" + std::to_string(ascOnly);
    EXPECT_EQ(libraryFamilyList(file, kind, device, package, speed, withObsolete, ascOnly), walked)
        << "first-seen list, " << where;
    EXPECT_EQ(
        librarySortedList(mngr, file.m_pm, kind, device, package, speed, withObsolete, ascOnly),
        walkedSorted)
        << "sorted list, " << where;
    return 2;
}

std::size_t expectPartNameMatches(TarnDeviceMngr& mngr, const std::string& pm,
                                  const std::array<std::string, 4>& fields) {
    const Answer walked = answerOf([&] {
        return Strings{ref::partName(mngr, pm, fields[0], fields[1], fields[2], fields[3])};
    });
    const Answer answered = answerOf(
        [&] { return Strings{mngr.getPartName(pm, fields[0], fields[1], fields[2], fields[3])}; });
    EXPECT_EQ(answered, walked) << pm << " part name of [" << fields[0] << "|" << fields[1] << "|"
                                << fields[2] << "|" << fields[3] << "]";
    return 1;
}

std::array<std::string, 4> transformed(const std::array<std::string, 4>& fields,
                                       std::string (*change)(const std::string&)) {
    return {change(fields[0]), change(fields[1]), change(fields[2]), change(fields[3])};
}

}  // namespace

std::size_t expectFamilyMatchesWalk(TarnDeviceMngr& mngr, const std::string& pm, Sweep sweep) {
    TarnSDSFile* file = mngr.getFamilyFile(pm);
    EXPECT_NE(file, nullptr) << pm;
    if (!file)
        return 0;
    const FieldSets sets = fieldSetsOf(*file);
    const auto devices = everyNth(sets.devices, sweep.stride);
    const auto devicePackages = everyNth(sets.devicePackages, sweep.stride);
    const auto deviceSpeeds = everyNth(sets.deviceSpeeds, sweep.stride);
    std::size_t compared = 0;
    for (const auto& [withObsolete, ascOnly] : kFilters) {
        compared += expectListMatches(mngr, *file, PartListKind::Devices, "", "", "", withObsolete,
                                      ascOnly);
        for (const std::string& device : devices)
            compared += expectListMatches(mngr, *file, PartListKind::Packages, device, "", "",
                                          withObsolete, ascOnly);
        for (const auto& [device, package] : devicePackages)
            compared += expectListMatches(mngr, *file, PartListKind::Speeds, device, package, "",
                                          withObsolete, ascOnly);
        for (const auto& [device, package, speed] : deviceSpeeds)
            compared += expectListMatches(mngr, *file, PartListKind::Conditions, device, package,
                                          speed, withObsolete, ascOnly);

        const Answer walkedParts =
            answerOf([&] { return ref::allParts(*file, withObsolete, ascOnly); });
        EXPECT_EQ(answerOf([&] {
                      Strings list = kUntouched;
                      file->getAllParts(list, withObsolete, ascOnly);
                      return list;
                  }),
                  walkedParts)
            << pm << " all parts, withObsolete=" << withObsolete << " ascOnly=" << ascOnly;
        Answer walkedSorted = walkedParts;
        tarn::vyxpn::sortNatural(walkedSorted.values);
        EXPECT_EQ(answerOf([&] {
                      Strings list;
                      mngr.getAllPartsByPM(pm, list, withObsolete, ascOnly);
                      return list;
                  }),
                  walkedSorted)
            << pm << " all parts by PM, withObsolete=" << withObsolete << " ascOnly=" << ascOnly;
        compared += 2;
    }

    if (sets.names.empty())
        return compared;
    // Each field set as it stands and in upper and lower case (most cells are
    // upper case already: asking twice proves nothing), plus unknown ones.
    std::set<std::array<std::string, 4>> queries;
    for (const auto& fields : everyNth(sets.names, sweep.stride)) {
        queries.insert(fields);
        queries.insert(transformed(fields, tarn::vyxpn::util::toUpper));
        queries.insert(transformed(fields, tarn::vyxpn::util::toLower));
    }
    const std::array<std::string, 4> first = *sets.names.begin();
    queries.insert({first[0], first[1], first[2], "NO-SUCH"});
    queries.insert({"NO-SUCH", first[1], first[2], first[3]});
    queries.insert({"", "", "", ""});
    for (const auto& fields : queries)
        compared += expectPartNameMatches(mngr, pm, fields);
    return compared;
}

std::size_t expectLookupsMatchWalk(TarnDeviceMngr& mngr, const Strings& extraNames) {
    std::set<std::string> names(extraNames.begin(), extraNames.end());
    for (const auto& entry : mngr.getFamilyFiles())
        if (entry.second)
            for (const auto& row : entry.second->m_genericDevices.m_datas)
                names.insert(row.first);
    names.insert({"NO-SUCH-PART", "", "zr4-6qf48c-unknown"});

    std::size_t compared = 0;
    for (const std::string& part : names) {
        const Answer walked = answerOf([&] {
            const ref::NameFields fields = ref::nameByPart(mngr, part);
            return fields.found ? Strings{fields.pm, fields.device, fields.package, fields.speed,
                                          fields.condition}
                                : Strings{};
        });
        const Answer answered = answerOf([&] {
            std::string pm = "?", device = "?", package = "?", speed = "?", condition = "?";
            if (!mngr.getNameByPart(part, pm, device, package, speed, condition))
                return Strings{};
            return Strings{pm, device, package, speed, condition};
        });
        EXPECT_EQ(answered, walked) << "name lookup of " << part;
        Answer walkedExists = walked;
        walkedExists.values = {walked.values.empty() ? "no" : "yes"};
        if (!walked.thrown.empty())
            walkedExists.values.clear();
        EXPECT_EQ(answerOf([&] { return Strings{mngr.exists(part) ? "yes" : "no"}; }), walkedExists)
            << "exists " << part;
        compared += 2;
    }

    for (const auto& [withObsolete, ascOnly] : kFilters) {
        const Answer walked =
            answerOf([&] { return ref::allFamilies(mngr, withObsolete, ascOnly); });
        EXPECT_EQ(answerOf([&] {
                      Strings list;
                      mngr.getAllFamilies(list, withObsolete, ascOnly);
                      return list;
                  }),
                  walked)
            << "families, withObsolete=" << withObsolete << " ascOnly=" << ascOnly;
        ++compared;
    }
    return compared;
}

std::size_t expectManagerMatchesWalk(TarnDeviceMngr& mngr, const Strings& extraNames, Sweep sweep) {
    std::size_t compared = expectLookupsMatchWalk(mngr, extraNames);
    for (const auto& entry : mngr.getFamilyFiles())
        compared += expectFamilyMatchesWalk(mngr, entry.first, sweep);
    return compared;
}

}  // namespace devctrl_test
