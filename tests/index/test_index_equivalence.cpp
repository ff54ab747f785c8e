// The indexed answers of the manager and the family objects against the plain
// walks of reference_walks.h, exceptions included: on the sample data, on a
// generated catalogue through the events that must drop the indexes, and on
// hand-made tables with bad rows.

#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <memory>
#include <set>

#include "bench/generator/catalogue_generator.h"
#include "devctrl/mngr/comparators.h"
#include "devctrl/util/string_utils.h"
#include "index/reference_walks.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TempDir;
using devctrl_test::TraceCapture;
using Strings = std::vector<std::string>;
namespace ref = devctrl_test::ref;
using ref::Cells;

namespace {

// A query's values, or "threw <what>".
template <typename Query>
Strings answerOf(Query&& query) {
    try {
        return query();
    } catch (const std::out_of_range&) {
        return {"threw out_of_range"};
    } catch (const std::exception& error) {
        return {std::string("threw ") + error.what()};
    }
}

const std::pair<bool, bool> kFilters[] = {
    {false, false}, {true, false}, {false, true}, {true, true}};
const Strings kUntouched{"<untouched>"};  // lists a family cannot answer stay so

// Every `stride`-th distinct prefix of the name cells, by length 0..4, over
// the rows ("" for a cell a short row lacks), plus unknown ones.
std::array<std::vector<Cells>, 5> prefixesOf(const TarnSDSFile& file, std::size_t stride) {
    const auto& table = file.m_genericDevices;
    const int columns[] = {table.columnOf("Device"), table.columnOf("Package"),
                           table.columnOf("Speed"), table.columnOf("Condition")};
    std::array<std::set<Cells>, 5> sets;
    for (const auto& entry : table.m_datas) {
        Cells cells;
        sets[0].insert(cells);
        for (std::size_t k = 0; k < 4; ++k) {
            const auto at = static_cast<std::size_t>(columns[k]);
            cells[k] = columns[k] >= 0 && at < entry.second.size() ? entry.second[at] : "";
            sets[k + 1].insert(cells);
        }
    }
    for (std::size_t k = 1; k <= 4 && !sets[k].empty(); ++k) {
        Cells known = *sets[k].begin(), unknownFirst = known;
        known[k - 1] = unknownFirst[0] = "NO-SUCH";
        sets[k].insert({known, unknownFirst});
    }
    std::array<std::vector<Cells>, 5> kept;
    for (std::size_t k = 0; k <= 4; ++k) {
        std::size_t n = 0;  // the first of each always
        std::copy_if(sets[k].begin(), sets[k].end(), std::back_inserter(kept[k]),
                     [&](const Cells&) { return n++ % stride == 0; });
    }
    return kept;
}

// The family's first-seen list of `kind`, or its sorted one.
Strings libraryList(const TarnSDSFile& file, PartListKind kind, const Cells& c, bool obsolete,
                    bool asc, bool sorted) {
    Strings list = kUntouched;
    if (sorted)
        file.getSortedList(kind, c[0], c[1], c[2], list, obsolete, asc);
    else if (kind == PartListKind::Devices)
        file.getDevices(list, obsolete, asc);
    else if (kind == PartListKind::Packages)
        file.getPackages(c[0], list, obsolete, asc);
    else if (kind == PartListKind::Speeds)
        file.getSpeeds(c[0], c[1], list, obsolete, asc);
    else
        file.getOperations(c[0], c[1], c[2], list, obsolete, asc);
    return list;
}

// Every list query of the family, first-seen and sorted, for every prefix of
// cells under all four filters; its part listings; part names from every
// cell set as it stands and in upper and lower case.
void expectFamilyMatchesWalk(TarnDeviceMngr& mngr, const TarnSDSFile& file, std::size_t stride) {
    const auto prefixes = prefixesOf(file, stride);
    for (const auto& [obsolete, asc] : kFilters) {
        const std::string filters =
            " obsolete=" + std::to_string(obsolete) + " asc=" + std::to_string(asc);
        for (int k = 0; k < 4; ++k) {
            const auto kind = static_cast<PartListKind>(k);
            for (const Cells& c : prefixes[k]) {
                Strings walked = answerOf([&] {
                    Strings list = kUntouched;
                    ref::familyList(file, kind, c, list, obsolete, asc);
                    return list;
                });
                for (bool sorted : {false, true}) {
                    if (sorted)  // leaves an exception or an untouched list as it is
                        kind == PartListKind::Packages ? sortPackages(walked) : sortNatural(walked);
                    EXPECT_EQ(
                        answerOf([&] { return libraryList(file, kind, c, obsolete, asc, sorted); }),
                        walked)
                        << file.m_pm << " list " << k << (sorted ? " sorted" : "") << " of ["
                        << c[0] << "|" << c[1] << "|" << c[2] << "]" << filters;
                }
            }
        }
        Strings walked = answerOf([&] { return ref::allParts(file, obsolete, asc); });
        EXPECT_EQ(answerOf([&] {
                      Strings listed = kUntouched;
                      file.getAllParts(listed, obsolete, asc);
                      return listed;
                  }),
                  walked)
            << file.m_pm << " all parts" << filters;
        sortNatural(walked);
        EXPECT_EQ(answerOf([&] {
                      Strings listed;
                      mngr.getAllPartsByPM(file.m_pm, listed, obsolete, asc);
                      return listed;
                  }),
                  walked)
            << file.m_pm << " all parts by PM" << filters;
    }
    std::set<Cells> names{Cells{}};
    for (const Cells& c : prefixes[4])
        for (auto change :
             {+[](const std::string& s) { return s; }, &util::toUpper, &util::toLower})
            names.insert({change(c[0]), change(c[1]), change(c[2]), change(c[3])});
    for (const Cells& c : names)
        EXPECT_EQ(
            answerOf([&] { return Strings{mngr.getPartName(file.m_pm, c[0], c[1], c[2], c[3])}; }),
            answerOf([&] { return Strings{ref::partName(mngr, file.m_pm, c)}; }))
            << file.m_pm << " part name of [" << c[0] << "|" << c[1] << "|" << c[2] << "|" << c[3]
            << "]";
}

// Owner and cells of every part and of `extra`, whether it exists, and the
// family list under all four filters; then every family's queries.
void expectManagerMatchesWalk(TarnDeviceMngr& mngr, std::size_t stride = 1,
                              const Strings& extra = {}) {
    std::set<std::string> parts(extra.begin(), extra.end());
    parts.insert({"NO-SUCH-PART", ""});
    for (const auto& entry : mngr.getFamilyFiles())
        for (const auto& row : entry.second->m_genericDevices.m_datas)
            parts.insert(row.first);
    for (const std::string& part : parts) {
        const Strings walked = answerOf([&] { return ref::nameByPart(mngr, part); });
        EXPECT_EQ(answerOf([&] {
                      Strings f(5, "?");
                      return mngr.getNameByPart(part, f[0], f[1], f[2], f[3], f[4]) ? f : Strings{};
                  }),
                  walked)
            << "name lookup of " << part;
        const bool threw = walked.size() == 1;
        EXPECT_EQ(answerOf([&] { return Strings{mngr.exists(part) ? "yes" : "no"}; }),
                  threw ? walked : Strings{walked.empty() ? "no" : "yes"})
            << "exists " << part;
    }
    for (const auto& [obsolete, asc] : kFilters)
        EXPECT_EQ(answerOf([&, obsolete = obsolete, asc = asc] {
                      Strings families;
                      mngr.getAllFamilies(families, obsolete, asc);
                      return families;
                  }),
                  answerOf([&, obsolete = obsolete, asc = asc] {
                      return ref::allFamilies(mngr, obsolete, asc);
                  }))
            << "families " << obsolete << asc;
    for (const auto& entry : mngr.getFamilyFiles())
        expectFamilyMatchesWalk(mngr, *entry.second, stride);
}

const Strings kItems{"Device", "Speed", "Package", "Condition", "Status", "ASCMaxNum"};

// A family of hand-made rows ("part,cell,cell...") adopted by `mngr`.
TarnSDSFile* adoptFamily(TarnDeviceMngr& mngr, const std::string& pm, const Strings& rows,
                         const Strings& items = kItems, bool withManagerPointer = true) {
    auto* file = new TarnSDSFile(pm, withManagerPointer ? &mngr : nullptr);
    file->m_genericDevices.m_items = items;
    for (const std::string& row : rows) {
        Strings cells = util::split(row, ",");
        const std::string part = cells.front();
        cells.erase(cells.begin());
        file->m_genericDevices.m_datas[part] = cells;
    }
    mngr.adoptFamilyFile(file);
    return file;
}

std::string ownerOf(TarnDeviceMngr& mngr, const std::string& part) {
    std::string pm, device, package, speed, condition;
    return mngr.getNameByPart(part, pm, device, package, speed, condition) ? pm : "";
}

}  // namespace

TEST(IndexEquivalence, SampleDataBeforeAndAfterResetAndReload) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    ASSERT_GE(mngr.getFamilyFiles().size(), 4u);
    expectManagerMatchesWalk(mngr);

    // A stale index is stale for every query: a sample of them is enough now.
    mngr.reset();
    EXPECT_TRUE(mngr.getFamilyFiles().empty());
    expectManagerMatchesWalk(mngr, 1, {"ZR4-6QF48C"});
    mngr.init();
    ASSERT_GE(mngr.getFamilyFiles().size(), 4u);
    expectManagerMatchesWalk(mngr, 25);
    Strings pms;
    for (const auto& entry : mngr.getFamilyFiles())
        pms.push_back(entry.first);
    for (const std::string& pm : pms)
        ASSERT_TRUE(mngr.loadDeviceInfo(pm, true)) << pm;
    expectManagerMatchesWalk(mngr, 25);
}

TEST(IndexEquivalence, GeneratedCatalogueThroughResetReloadAdoptionAndEdits) {
    TempDir root;
    const std::string dir = root.path() + "/data";
    gen::GeneratorOptions options;
    options.parts = 3000;
    options.seed = 7;
    const Strings shared = gen::generateCatalogue(dir, options).sharedParts;
    DataDirScope scope(dir);
    TraceCapture quiet;  // the switched-off family complains while loading
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    ASSERT_FALSE(shared.empty());
    Strings holders;
    for (const auto& [pm, file] : mngr.getFamilyFiles())
        if (file->m_genericDevices.m_datas.count(shared.front()))
            holders.push_back(pm);
    ASSERT_EQ(holders.size(), 2u);
    expectManagerMatchesWalk(mngr, 1, shared);

    mngr.reset();
    EXPECT_FALSE(mngr.exists(shared.front()));
    mngr.init();
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[0]);
    expectManagerMatchesWalk(mngr, 10, shared);

    // A reload that fails leaves the PM unloaded: its shared names pass on.
    ASSERT_TRUE(QFile::remove(QString::fromStdString(dir + "/" + holders[0] + "/device.acd")));
    EXPECT_FALSE(mngr.loadDeviceInfo(holders[0], true));
    EXPECT_EQ(mngr.getFamilyFile(holders[0]), nullptr);
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[1]);
    expectManagerMatchesWalk(mngr, 10, shared);

    // A hand-made family whose PM sorts first takes a name over.
    adoptFamily(mngr, "aa0a00", {shared.back() + ",AQ1,6,QF48,COM,P,3"});
    EXPECT_EQ(ownerOf(mngr, shared.back()), "aa0a00");
    expectManagerMatchesWalk(mngr, 10, shared);

    // Edits in place (a device renamed, a part dropped, one added), announced
    // by the family; then another, announced by the manager.
    TarnSDSFile& edited = *mngr.getFamilyFile(holders[1]);
    auto& parts = edited.m_genericDevices.m_datas;
    parts.begin()->second.at(edited.m_genericDevices.columnOf("Device")) = "ZZ-RENAMED";
    parts.erase(std::next(parts.begin()));
    parts["ZZ-ADDED"] = parts.rbegin()->second;
    edited.invalidateIndexes();
    expectManagerMatchesWalk(mngr, 10, shared);
    parts.erase(parts.begin());
    mngr.invalidateIndexes();
    expectManagerMatchesWalk(mngr, 10, shared);
}

// A name held by two PMs takes its ASC capacity from the PM that owns it; the
// owner here has no manager pointer, yet its own invalidation must reach the
// manager holding it.
TEST(IndexEquivalence, OwnershipAndAscCapacityOfASharedNameFollowEveryEvent) {
    TempDir empty;
    DataDirScope scope(empty.path());
    TarnDeviceMngr mngr;
    TarnSDSFile* first = adoptFamily(
        mngr, "zq1a00", {"ZQ4-6QF48C,ZQ4,6,QF48,COM,P,2", "ZQ8-6QF48C,ZQ8,6,QF48,COM,P,1"}, kItems,
        false);
    adoptFamily(mngr, "zq2a00", {"ZQ4-6QF48C,ZQ4,6,QF48,COM,P,0", "ZQ4-7QF48C,ZQ4,7,QF48,COM,P,1"});
    auto expectOwner = [&](const std::string& pm, const Strings& speeds) {
        EXPECT_EQ(ownerOf(mngr, "ZQ4-6QF48C"), pm);
        Strings listed;
        mngr.getSpeeds("zq2a00", "ZQ4", "QF48", listed, false, true);
        EXPECT_EQ(listed, speeds) << "capacity of ZQ4-6QF48C from " << pm;
        expectManagerMatchesWalk(mngr);
    };
    expectOwner("zq1a00", {"6", "7"});

    auto& rows = first->m_genericDevices.m_datas;
    const Strings row = rows.at("ZQ4-6QF48C");
    rows.erase("ZQ4-6QF48C");
    first->invalidateIndexes();
    expectOwner("zq2a00", {"7"});
    rows["ZQ4-6QF48C"] = row;
    mngr.invalidateIndexes();
    expectOwner("zq1a00", {"6", "7"});

    {
        TraceCapture quiet;
        EXPECT_FALSE(mngr.loadDeviceInfo("zq1a00", true)) << "nothing to load: zq1a00 goes away";
    }
    expectOwner("zq2a00", {"7"});
    adoptFamily(mngr, "zq1a00", {"ZQ4-6QF48C,ZQ4,6,QF48,COM,P,5"});
    expectOwner("zq1a00", {"6", "7"});
}

TEST(IndexEquivalence, ShortRowsCaseNulAndDuplicateCells) {
    TarnDeviceMngr mngr;
    TarnSDSFile* file = adoptFamily(mngr, "zs1a00",
                                    {"ZS4-6QF48C,ZS4,6,QF48,COM,P,1",
                                     "ZS4-6QF48C-ES,ZS4,6,QF48,COM,P,1",   // duplicate cells
                                     "ZS4-6QF48C-LOW,zs4,6,qf48,com,P,1",  // case only
                                     "ZS4-7QF48C,ZS4,7,QF48,COM,P",        // no ASC capacity
                                     "ZS4-8QF48C,ZS4,8,QF48",              // no condition, status
                                     "ZS5-6,ZS5,6", "ZS6,ZS6", "ZZ-EMPTY"});
    auto& rows = file->m_genericDevices.m_datas;
    rows["ZA4-6QF48C"] = {std::string("ZS4\0A", 5), "6", "QF48", "COM", "P", "1"};
    rows["ZS4-6QF48C-NUL"] = {std::string("ZS4\0B", 5), "6", "QF48", "COM", "O", "1"};
    file->invalidateIndexes();
    expectManagerMatchesWalk(mngr);
    // The walk raises where it reads a short row; so must the answers, but
    // not where the cells before the missing one already differ.
    Strings list;
    EXPECT_THROW(file->getDevices(list, true, false), std::out_of_range);
    EXPECT_THROW(mngr.getPackages("zs1a00", "ZS5", list, true, false), std::out_of_range);

    rows.erase("ZZ-EMPTY");
    rows.erase("ZS6");
    file->invalidateIndexes();
    expectManagerMatchesWalk(mngr);
    mngr.getSpeeds("zs1a00", "ZS4", "QF48", list, true, false);
    EXPECT_EQ(list, (Strings{"6", "7", "8"}));
    mngr.getDevices("zs1a00", list, true, false);
    EXPECT_EQ(list.size(), 5u) << "ZS4, zs4, ZS4\\0A, ZS4\\0B and ZS5";
    EXPECT_EQ(mngr.getPartName("zs1a00", "ZS4", "QF48", "8", ""), "")
        << "a missing cell is not \"\"";
    // Names compare without case and only up to a NUL: the first key wins.
    EXPECT_EQ(mngr.getPartName("zs1a00", "zS4", "Qf48", "6", "cOm"), "ZA4-6QF48C");
}

TEST(IndexEquivalence, MissingStatusOrConditionColumnLeavesListsAndNamesAlone) {
    TarnDeviceMngr mngr;
    // zm1a00 sorts first but cannot answer name lookups: zm2a00 owns the name.
    adoptFamily(mngr, "zm1a00", {"ZM4-6QF48C,ZM4,6,QF48,P"},
                {"Device", "Speed", "Package", "Status"});
    adoptFamily(mngr, "zm2a00", {"ZM4-6QF48C,ZM4,6,QF48,COM", "ZM4-6QF48I,ZM4,6,QF48,IND"},
                {"Device", "Speed", "Package", "Condition"});
    expectManagerMatchesWalk(mngr);
    Strings list{"kept"};
    mngr.getDevices("zm2a00", list, true, false);
    EXPECT_EQ(list, Strings{"kept"}) << "no Status column";
    mngr.getOperations("zm1a00", "ZM4", "QF48", "6", list, true, false);
    EXPECT_EQ(list, Strings{"kept"}) << "no Condition column";
    EXPECT_EQ(ownerOf(mngr, "ZM4-6QF48C"), "zm2a00");
}
