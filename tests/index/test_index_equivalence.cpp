// The indexed answers of the manager and the family objects against plain
// walks over the same tables, on real-looking installations, through the
// events that must drop the indexes, and on hand-made tables with bad rows.

#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <memory>

#include "bench/generator/catalogue_generator.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "index/equivalence_check.h"
#include "index/reference_walks.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::Answer;
using devctrl_test::answerOf;
using devctrl_test::DataDirScope;
using devctrl_test::expectFamilyMatchesWalk;
using devctrl_test::expectManagerMatchesWalk;
using devctrl_test::TempDir;
using devctrl_test::TraceCapture;
using Strings = std::vector<std::string>;
using Row = std::vector<std::string>;

namespace {

// A generated installation in a temporary directory, loaded by the library.
struct GeneratedInstallation {
    GeneratedInstallation() : dir(root.path() + "/data") {
        gen::GeneratorOptions options;
        options.parts = 3000;
        options.seed = 7;
        catalogue = gen::generateCatalogue(dir, options);
        scope = std::make_unique<DataDirScope>(dir);
        TraceCapture quiet;  // the switched-off family complains while loading
        mngr = TarnDeviceMngr::getInstance();
    }

    TempDir root;
    std::string dir;
    gen::GeneratedCatalogue catalogue;
    std::unique_ptr<DataDirScope> scope;
    TarnDeviceMngr* mngr = nullptr;
};

// The PMs whose part table holds `part`, in PM order.
Strings holdersOf(const TarnDeviceMngr& mngr, const std::string& part) {
    Strings pms;
    for (const auto& [pm, file] : mngr.getFamilyFiles())
        if (file && file->m_genericDevices.m_datas.count(part))
            pms.push_back(pm);
    return pms;
}

std::string ownerOf(TarnDeviceMngr& mngr, const std::string& part) {
    std::string pm, device, package, speed, condition;
    return mngr.getNameByPart(part, pm, device, package, speed, condition) ? pm : "";
}

// A family of hand-made rows adopted by `mngr`.
TarnSDSFile* adoptFamily(TarnDeviceMngr& mngr, const std::string& pm, const Strings& items,
                         const std::vector<std::pair<std::string, Row>>& rows) {
    auto* file = new TarnSDSFile(pm, &mngr);
    file->m_genericDevices.m_items = items;
    for (const auto& [part, row] : rows)
        file->m_genericDevices.m_datas[part] = row;
    mngr.adoptFamilyFile(file);
    return file;
}

// The families whose answers an event can change: those holding a name of
// `names`, plus `more`.
Strings familiesHolding(const TarnDeviceMngr& mngr, const Strings& names, Strings more = {}) {
    for (const std::string& name : names)
        for (const std::string& pm : holdersOf(mngr, name))
            if (std::find(more.begin(), more.end(), pm) == more.end())
                more.push_back(pm);
    return more;
}

// Name lookups everywhere, lists of the given families only.
void expectFamiliesMatchWalk(TarnDeviceMngr& mngr, const Strings& pms, const Strings& names,
                             devctrl_test::Sweep sweep) {
    devctrl_test::expectLookupsMatchWalk(mngr, names);
    for (const std::string& pm : pms)
        if (mngr.getFamilyFile(pm))
            expectFamilyMatchesWalk(mngr, pm, sweep);
}

const Strings kItems{"Device", "Speed", "Package", "Condition", "Status", "ASCMaxNum"};

}  // namespace

TEST(IndexEquivalenceSample, EveryQueryMatchesTheWalkBeforeAndAfterReloading) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    ASSERT_GE(mngr.getFamilyFiles().size(), 4u);
    EXPECT_GT(expectManagerMatchesWalk(mngr), 10000u);

    // After the events that rebuild the indexes every stride-th combination is
    // enough: a stale index is stale for every query.
    const devctrl_test::Sweep sampled{25};
    mngr.reset();
    EXPECT_TRUE(mngr.getFamilyFiles().empty());
    EXPECT_GT(devctrl_test::expectLookupsMatchWalk(mngr, {"ZR4-6QF48C"}), 0u);
    mngr.init();
    ASSERT_GE(mngr.getFamilyFiles().size(), 4u);
    expectManagerMatchesWalk(mngr, {}, sampled);

    // Reloading every family in turn; the lists of the others may depend on
    // it through ASC capacity.
    Strings pms;
    for (const auto& entry : mngr.getFamilyFiles())
        pms.push_back(entry.first);
    for (const std::string& pm : pms)
        ASSERT_TRUE(mngr.loadDeviceInfo(pm, true)) << pm;
    expectManagerMatchesWalk(mngr, {}, sampled);
}

TEST(IndexEquivalenceCatalogue, EveryQueryOfEveryFamilyMatchesTheWalk) {
    GeneratedInstallation installed;
    TarnDeviceMngr& mngr = *installed.mngr;
    ASSERT_FALSE(installed.catalogue.sharedParts.empty());
    for (const std::string& part : installed.catalogue.sharedParts)
        ASSERT_EQ(holdersOf(mngr, part).size(), 2u) << part;
    EXPECT_GT(expectManagerMatchesWalk(mngr, installed.catalogue.sharedParts), 10000u);
}

TEST(IndexEquivalenceCatalogue, AnswersFollowResetReloadAdoptionAndEdits) {
    GeneratedInstallation installed;
    TarnDeviceMngr& mngr = *installed.mngr;
    const Strings& shared = installed.catalogue.sharedParts;
    ASSERT_FALSE(shared.empty());
    const Strings holders = holdersOf(mngr, shared.front());
    ASSERT_EQ(holders.size(), 2u);
    // Every family is swept once by the test above; here the ones holding
    // shared names, whose answers the events below change.
    const Strings affected = familiesHolding(mngr, shared, {"aa0a00"});
    // Warm every index before changing anything; afterwards every stride-th
    // combination is enough, as a stale index is stale for every query.
    const devctrl_test::Sweep sampled{10};
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);

    mngr.reset();
    EXPECT_FALSE(mngr.exists(shared.front()));
    {
        TraceCapture quiet;
        mngr.init();
    }
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[0]);
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);

    // A reload that fails leaves the PM unloaded: its shared names pass to
    // the other PM.
    ASSERT_TRUE(mngr.loadDeviceInfo(holders[0], true));
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);
    ASSERT_TRUE(
        QFile::remove(QString::fromStdString(installed.dir + "/" + holders[0] + "/device.acd")));
    {
        TraceCapture quiet;
        EXPECT_FALSE(mngr.loadDeviceInfo(holders[0], true));
    }
    EXPECT_EQ(mngr.getFamilyFile(holders[0]), nullptr);
    EXPECT_EQ(ownerOf(mngr, shared.front()), holders[1]);
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);

    // A hand-made family whose PM sorts first takes a name over.
    const std::string taken = shared.back();
    adoptFamily(mngr, "aa0a00", kItems, {{taken, {"AQ1", "6", "QF48", "COM", "P", "3"}}});
    EXPECT_EQ(ownerOf(mngr, taken), "aa0a00");
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);

    // Edits in place, announced afterwards: a device renamed, a part dropped,
    // a part added.
    TarnSDSFile& edited = *mngr.getFamilyFile(holders[1]);
    auto& parts = edited.m_genericDevices.m_datas;
    ASSERT_GE(parts.size(), 3u);
    const int deviceColumn = edited.m_genericDevices.columnOf("Device");
    ASSERT_GE(deviceColumn, 0);
    parts.begin()->second.at(deviceColumn) = "ZZ-RENAMED";
    parts.erase(std::next(parts.begin()));
    const Row lastRow = parts.rbegin()->second;
    parts["ZZ-ADDED"] = lastRow;
    edited.invalidateIndexes();
    Strings devices;
    mngr.getDevices(holders[1], devices, true, false);
    EXPECT_NE(std::find(devices.begin(), devices.end(), "ZZ-RENAMED"), devices.end());
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);

    // The same through the manager.
    parts.erase(parts.begin());
    mngr.invalidateIndexes();
    devices.clear();
    mngr.getDevices(holders[1], devices, true, false);
    EXPECT_EQ(std::find(devices.begin(), devices.end(), "ZZ-RENAMED"), devices.end());
    expectFamiliesMatchWalk(mngr, affected, shared, sampled);
}

// A name held by two PMs takes its ASC capacity from the PM that owns it, so
// when the owner goes away the other PM's ASC-only lists change.
TEST(IndexEquivalenceOwnership, AscCapacityFollowsTheOwnerOfASharedName) {
    TempDir empty;
    DataDirScope scope(empty.path());
    TarnDeviceMngr mngr;
    adoptFamily(mngr, "zq1a00", kItems,
                {{"ZQ4-6QF48C", {"ZQ4", "6", "QF48", "COM", "P", "2"}},
                 {"ZQ8-6QF48C", {"ZQ8", "6", "QF48", "COM", "P", "1"}}});
    adoptFamily(mngr, "zq2a00", kItems,
                {{"ZQ4-6QF48C", {"ZQ4", "6", "QF48", "COM", "P", "0"}},
                 {"ZQ4-7QF48C", {"ZQ4", "7", "QF48", "COM", "P", "1"}},
                 {"ZQ6-6QF48C", {"ZQ6", "6", "QF48", "COM", "P", "1"}}});

    Strings speeds;
    mngr.getSpeeds("zq2a00", "ZQ4", "QF48", speeds, false, true);
    EXPECT_EQ(speeds, (Strings{"6", "7"})) << "ZQ4-6QF48C has zq1a00's capacity 2";
    expectManagerMatchesWalk(mngr);

    {
        TraceCapture quiet;
        EXPECT_FALSE(mngr.loadDeviceInfo("zq1a00", true)) << "nothing to load: zq1a00 goes away";
    }
    EXPECT_EQ(ownerOf(mngr, "ZQ4-6QF48C"), "zq2a00");
    mngr.getSpeeds("zq2a00", "ZQ4", "QF48", speeds, false, true);
    EXPECT_EQ(speeds, Strings{"7"}) << "zq2a00's own capacity 0 now counts";
    Strings parts;
    mngr.getAllPartsByPM("zq2a00", parts, true, true);
    EXPECT_EQ(parts, (Strings{"ZQ4-7QF48C", "ZQ6-6QF48C"}));
    expectManagerMatchesWalk(mngr);

    // Taking the name back by adoption restores the first answer.
    adoptFamily(mngr, "zq1a00", kItems, {{"ZQ4-6QF48C", {"ZQ4", "6", "QF48", "COM", "P", "5"}}});
    mngr.getSpeeds("zq2a00", "ZQ4", "QF48", speeds, false, true);
    EXPECT_EQ(speeds, (Strings{"6", "7"}));
    expectManagerMatchesWalk(mngr);
}

TEST(IndexEquivalenceEdges, ShortRowsAnswerLikeTheWalkIncludingItsExceptions) {
    TarnDeviceMngr mngr;
    // Each row stops before a different column.
    TarnSDSFile* file =
        adoptFamily(mngr, "zs1a00", kItems,
                    {{"ZS4-6QF48C", {"ZS4", "6", "QF48", "COM", "P", "1"}},
                     {"ZS4-7QF48C", {"ZS4", "7", "QF48", "COM", "P"}},  // no ASC capacity cell
                     {"ZS4-8QF48C", {"ZS4", "8", "QF48"}},              // no condition or status
                     {"ZS5-6", {"ZS5", "6"}},                           // no package
                     {"ZS6", {"ZS6"}},                                  // device only
                     {"ZZ-EMPTY", {}}});                                // nothing at all
    expectManagerMatchesWalk(mngr);

    // The walk raises on the short rows; so must the answers.
    Answer devices = answerOf([&] {
        Strings list;
        file->getDevices(list, true, false);
        return list;
    });
    EXPECT_EQ(devices.thrown, "std::out_of_range") << devices;
    Answer packages = answerOf([&] {
        Strings list;
        mngr.getPackages("zs1a00", "ZS5", list, true, false);
        return list;
    });
    EXPECT_EQ(packages.thrown, "std::out_of_range") << packages;
    // ... but not where the cells before the short one already differ.
    Answer speeds = answerOf([&] {
        Strings list;
        mngr.getSpeeds("zs1a00", "ZS4", "QF48", list, true, false);
        return list;
    });
    EXPECT_EQ(speeds.thrown, "std::out_of_range") << "ZZ-EMPTY has no device cell";

    // Without the broken rows the table answers; the short-but-sufficient
    // rows stay.
    auto& rows = file->m_genericDevices.m_datas;
    rows.erase("ZZ-EMPTY");
    rows.erase("ZS6");
    file->invalidateIndexes();
    expectManagerMatchesWalk(mngr);
    Strings list;
    mngr.getSpeeds("zs1a00", "ZS4", "QF48", list, true, false);
    EXPECT_EQ(list, (Strings{"6", "7", "8"}));
    EXPECT_EQ(mngr.getPartName("zs1a00", "ZS4", "QF48", "8", ""), "")
        << "a missing cell equals nothing, not even \"\"";
    std::string pm, device, package, speed, condition;
    EXPECT_THROW(mngr.getNameByPart("ZS4-8QF48C", pm, device, package, speed, condition),
                 std::out_of_range);
}

TEST(IndexEquivalenceEdges, MissingStatusOrConditionColumnLeavesListsAndNamesAlone) {
    TarnDeviceMngr mngr;
    // zm1a00 sorts first but cannot answer name lookups: zm2a00 owns the name.
    adoptFamily(mngr, "zm1a00", {"Device", "Speed", "Package", "Status"},
                {{"ZM4-6QF48C", {"ZM4", "6", "QF48", "P"}}});
    adoptFamily(
        mngr, "zm2a00", {"Device", "Speed", "Package", "Condition"},
        {{"ZM4-6QF48C", {"ZM4", "6", "QF48", "COM"}}, {"ZM4-6QF48I", {"ZM4", "6", "QF48", "IND"}}});
    expectManagerMatchesWalk(mngr);

    Strings list{"kept"};
    mngr.getDevices("zm2a00", list, true, false);
    EXPECT_EQ(list, Strings{"kept"}) << "no Status column";
    mngr.getOperations("zm1a00", "ZM4", "QF48", "6", list, true, false);
    EXPECT_EQ(list, Strings{"kept"}) << "no Condition column";
    mngr.getSpeeds("zm1a00", "ZM4", "QF48", list, true, false);
    EXPECT_EQ(list, Strings{"6"});
    EXPECT_EQ(mngr.getPartName("zm1a00", "ZM4", "QF48", "6", "COM"), "");
    EXPECT_EQ(ownerOf(mngr, "ZM4-6QF48C"), "zm2a00");
}

TEST(IndexEquivalenceEdges, CaseNulAndDuplicateCells) {
    TarnDeviceMngr mngr;
    const std::string withNul("ZC4\0B", 5);
    adoptFamily(mngr, "zc1a00", kItems,
                {{"ZC4-6QF48C", {"ZC4", "6", "QF48", "COM", "P", "1"}},
                 {"ZC4-6QF48C-ES", {"ZC4", "6", "QF48", "COM", "P", "1"}},   // duplicate cells
                 {"ZC4-6QF48C-LOW", {"zc4", "6", "qf48", "com", "P", "1"}},  // case only
                 {"ZC4-6QF48C-NUL", {withNul, "6", "QF48", "COM", "O", "1"}},
                 {"ZC4-7QF48C", {"ZC4", "7", "QF48", "COM", "P", "0"}},
                 {"ZC4-7QF48I", {"ZC4", "7", "QF48", "IND", "P", "1"}},
                 {"ZA4-6QF48C", {"ZC4\0A", "6", "QF48", "COM", "P", "1"}}});
    expectManagerMatchesWalk(mngr);

    Strings list;
    mngr.getDevices("zc1a00", list, true, false);
    EXPECT_EQ(list.size(), 3u) << "ZC4, zc4 and ZC4\\0B are three devices";
    mngr.getSpeeds("zc1a00", "ZC4", "QF48", list, true, false);
    EXPECT_EQ(list, (Strings{"6", "7"})) << "duplicates listed once";
    // Names compare without case and only up to a NUL: the first key wins.
    EXPECT_EQ(mngr.getPartName("zc1a00", "zC4", "Qf48", "6", "cOm"), "ZA4-6QF48C");
    EXPECT_EQ(mngr.getPartName("zc1a00", withNul, "QF48", "7", "IND"), "ZC4-7QF48I");

    // Edits that only change case or the text after a NUL are seen too.
    TarnSDSFile& file = *mngr.getFamilyFile("zc1a00");
    file.m_genericDevices.m_datas.erase("ZA4-6QF48C");
    file.m_genericDevices.m_datas["ZC4-6QF48C"][0] = "zc4";
    mngr.invalidateIndexes();
    EXPECT_EQ(mngr.getPartName("zc1a00", "ZC4", "QF48", "6", "COM"), "ZC4-6QF48C");
    expectManagerMatchesWalk(mngr);
}

// A family adopted without a manager pointer: a shared name it drops after an
// in-place edit passes to the next PM once the manager is told.
TarnSDSFile* adoptWithoutManagerPointer(TarnDeviceMngr& mngr) {
    auto* first = new TarnSDSFile("zp1a00", nullptr);
    first->m_genericDevices.m_items = kItems;
    first->m_genericDevices.m_datas["ZP4-6QF48C"] = {"ZP4", "6", "QF48", "COM", "P", "2"};
    first->m_genericDevices.m_datas["ZP8-6QF48C"] = {"ZP8", "6", "QF48", "COM", "P", "2"};
    mngr.adoptFamilyFile(first);
    adoptFamily(mngr, "zp2a00", kItems, {{"ZP4-6QF48C", {"ZP4", "6", "QF48", "COM", "P", "0"}}});
    return first;
}

TEST(IndexEquivalenceEdges, FamilyWithoutManagerPointerEditedThenManagerTold) {
    TarnDeviceMngr mngr;
    TarnSDSFile* first = adoptWithoutManagerPointer(mngr);
    expectManagerMatchesWalk(mngr);
    Strings devices;
    mngr.getDevices("zp2a00", devices, false, true);
    EXPECT_EQ(devices, Strings{"ZP4"}) << "capacity 2 from zp1a00";

    first->m_genericDevices.m_datas.erase("ZP4-6QF48C");
    mngr.invalidateIndexes();
    EXPECT_EQ(ownerOf(mngr, "ZP4-6QF48C"), "zp2a00");
    mngr.getDevices("zp2a00", devices, false, true);
    EXPECT_TRUE(devices.empty()) << "zp2a00's own capacity 0";
    expectManagerMatchesWalk(mngr);
}

// The family has no manager of its own; the one holding it must still hear
// of the edit, or its part owners and the other families' ASC-filtered lists
// would stay as they were.
TEST(IndexEquivalenceEdges, FamilyWithoutManagerPointerEditedThenFamilyTold) {
    TarnDeviceMngr mngr;
    TarnSDSFile* first = adoptWithoutManagerPointer(mngr);
    expectManagerMatchesWalk(mngr);
    first->m_genericDevices.m_datas.erase("ZP4-6QF48C");
    first->invalidateIndexes();
    EXPECT_EQ(ownerOf(mngr, "ZP4-6QF48C"), "zp2a00");
    expectManagerMatchesWalk(mngr);
}
