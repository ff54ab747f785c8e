#include <gtest/gtest.h>

#include <cstdlib>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "platform/pm_database.h"
#include "platform/ut_trace.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::EnvGuard;
using devctrl_test::TempDir;
using devctrl_test::TraceCapture;
using Strings = std::vector<std::string>;

namespace {

const char* kGoodAcd = "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n";

// Writes one PM: family.key with the given family names and a device.acd.
void writePm(const TempDir& dir, const std::string& pm, const std::string& families,
             const std::string& acd = kGoodAcd) {
    dir.write(pm + "/family.key", "FAMILY = " + families +
                                      "\nDEVICES = D1\nPACKAGES = D1, QF48\n"
                                      "SPEEDS = D1, QF48, 6\nVENDOR_NOTE = kept as is\n");
    dir.write(pm + "/device.acd", acd);
}

}  // namespace

TEST(ManagerLifecycle, LoadsEveryPmAndDropsTheBrokenOnes) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    writePm(dir, "lc2a00", "LCB", "PM_ENABLE = false\nPKG_ALIAS = QF48, Q48\n");
    writePm(dir, "lc3a00", "LCC", "PM_ENABLE = true\n");  // no package aliases
    dir.write("lc4a00/device.acd", kGoodAcd);  // no family.key: not installed, and said so
    DataDirScope scope(dir.path());
    TraceCapture traces;

    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    ASSERT_NE(mngr, nullptr);
    EXPECT_EQ(TarnDeviceMngr::getInstance(), mngr);
    Strings loaded;
    for (const auto& entry : mngr->getFamilyFiles())
        loaded.push_back(entry.first);
    EXPECT_EQ(loaded, Strings{"lc1a00"});
    EXPECT_EQ(traces.lines(),
              (Strings{dir.file("lc4a00/family.key") + ": missing; family directory skipped",
                       "Failed to load device.acd of lc2a00",
                       "TarnDeviceMngr failed to load lc2a00 device information.",
                       "Failed to load device.acd of lc3a00",
                       "TarnDeviceMngr failed to load lc3a00 device information."}));
}

TEST(ManagerLifecycle, ReloadSemantics) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    DataDirScope scope(dir.path());
    TarnDeviceMngr mngr;
    ASSERT_TRUE(mngr.loadDeviceInfo("lc1a00", true));
    TarnSDSFile* first = mngr.getFamilyFile("lc1a00");
    first->m_defaultASC = "marker";

    EXPECT_TRUE(mngr.loadDeviceInfo("lc1a00", false));
    EXPECT_EQ(mngr.getFamilyFile("lc1a00"), first);
    EXPECT_EQ(first->m_defaultASC, "marker") << "no reload asked: the same object stays";

    ASSERT_TRUE(mngr.loadDeviceInfo("lc1a00", true));
    EXPECT_EQ(mngr.getFamilyFile("lc1a00")->m_defaultASC, "") << "reloaded from the files";

    // A reload that fails loses the loaded data: there is no rollback.
    dir.write("lc1a00/device.acd", "PM_ENABLE = false\nPKG_ALIAS = QF48, Q48\n");
    TraceCapture traces;
    EXPECT_FALSE(mngr.loadDeviceInfo("lc1a00", true));
    EXPECT_EQ(mngr.getFamilyFile("lc1a00"), nullptr);
    EXPECT_TRUE(traces.contains("TarnDeviceMngr failed to load lc1a00 device information."));

    mngr.reset();
    EXPECT_TRUE(mngr.getFamilyFiles().empty());
}

TEST(ManagerLifecycle, GetInstanceFromInsideInitReturnsTheLoadingManager) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    writePm(dir, "lc2a00", "LCB");
    DataDirScope scope(dir.path());
    std::vector<TarnDeviceMngr*> seen;
    setGuiMsgHandler([&](const char*) { seen.push_back(TarnDeviceMngr::getInstance()); });
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    setGuiMsgHandler(nullptr);
    EXPECT_EQ(seen, (std::vector<TarnDeviceMngr*>{mngr, mngr})) << "one progress tick per PM";
}

TEST(ManagerLifecycle, DestroyingTheManagerAllowsAnotherDataDirectory) {
    TempDir first;
    writePm(first, "lc1a00", "LCA");
    TempDir second;
    writePm(second, "lc9a00", "LCZ");
    DataDirScope scope(first.path());
    EXPECT_NE(TarnDeviceMngr::getInstance()->getFamilyFile("lc1a00"), nullptr);

    delete TarnDeviceMngr::getInstance();
    EXPECT_EQ(TarnDeviceMngr::m_pMngr, nullptr);
    EXPECT_EQ(PM_DATABASE::_database, nullptr);

    EnvGuard env("DEVCTRL_DATA_DIR", second.path().c_str());
    TarnDeviceMngr* again = TarnDeviceMngr::getInstance();
    EXPECT_EQ(again->getFamilyFile("lc1a00"), nullptr);
    EXPECT_NE(again->getFamilyFile("lc9a00"), nullptr);
}

TEST(ManagerLifecycle, EmptyDataDirectoryLoadsNothingQuietly) {
    TempDir dir;
    DataDirScope scope(dir.path());
    TraceCapture traces;
    Strings families{"kept"};
    TarnDeviceMngr::baseGetAllFamilies(families);
    EXPECT_TRUE(families.empty());
    EXPECT_TRUE(TarnDeviceMngr::getInstance()->getFamilyFiles().empty());
    EXPECT_TRUE(traces.lines().empty());
}

TEST(ManagerCatalogue, FamiliesAndPms) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCF12, LCF2");  // two family names share one PM
    writePm(dir, "lc2a00", "LCF7");
    DataDirScope scope(dir.path());

    Strings families;
    TarnDeviceMngr::baseGetAllFamilies(families);
    EXPECT_EQ(families, (Strings{"LCF2", "LCF7", "LCF12"}));

    Strings pms{"old"};
    TarnDeviceMngr::baseGetAllPMs(pms);
    EXPECT_EQ(pms, (Strings{"old", "lc1a00", "lc2a00", "lc1a00"})) << "appends, keeps repeats";
    TarnDeviceMngr::baseGetAllPMs(pms);
    EXPECT_EQ(pms.size(), 7u);

    EXPECT_EQ(TarnDeviceMngr::getInstance()->getFamilyFiles().size(), 2u);
}

TEST(ManagerCatalogue, NameMappingAndCaches) {
    TempDir dir;
    writePm(dir, "lc5a00", "LCCACHE, LCCACHE2");
    DataDirScope scope(dir.path());

    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm(""), "");
    EXPECT_EQ(TarnDeviceMngr::basePmToFamily(""), "");
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("lccache2"), "lc5a00") << "family case ignored";
    EXPECT_EQ(TarnDeviceMngr::basePmToFamily("lc5a00"), "LCCACHE") << "the record's first name";
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("LCLATER"), "");

    // Switch to a directory where the names mean something else: answers
    // already given come from the caches, unknown names are asked again.
    TempDir other;
    writePm(other, "lc6a00", "LCLATER, LCCACHE2");
    DataDirScope otherScope(other.path());
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("lccache2"), "lc5a00");
    EXPECT_EQ(TarnDeviceMngr::basePmToFamily("lc5a00"), "LCCACHE");
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("LCLATER"), "lc6a00");
}

TEST(ManagerCatalogue, KeyValuesAndDefaultDevice) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    DataDirScope scope(dir.path());

    char* value = TarnDeviceMngr::getValueByKey("lc1a00", "VENDOR_NOTE");
    ASSERT_NE(value, nullptr);
    EXPECT_STREQ(value, "kept as is");
    std::free(value);
    EXPECT_EQ(TarnDeviceMngr::getValueByKey("lc1a00", "NO_SUCH_KEY"), nullptr);
    EXPECT_EQ(TarnDeviceMngr::getValueByKey("nosuchpm", "FAMILY"), nullptr);

    std::string settings = dir.write("settings.ini", "Device=ZQ12-6BG100C\n");
    {
        EnvGuard env("DEVCTRL_SETTINGS", settings.c_str());
        EXPECT_EQ(TarnDeviceMngr::getDefaultDevice(), "ZQ12-6BG100C");
    }
    EnvGuard env("DEVCTRL_SETTINGS", dir.file("missing.ini").c_str());
    EXPECT_EQ(TarnDeviceMngr::getDefaultDevice(), "");
}
