// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

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
using tarn::vyxpn::StringList;

namespace {

const char* kGoodAcd = "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n";

// Writes one PM: family.key with the given family names and a device.acd.
void writePm(const TempDir& dir, const std::string& pm, const std::string& families,
             const std::string& acd = kGoodAcd) {
    dir.write(pm + "/family.key", "FAMILY = " + families +
                                      "\nDEVICES = D1\nPACKAGES = D1, QF48\n"
                                      "SPEEDS = D1, QF48, 6\n");
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

    const auto& loaded = TarnDeviceMngr::getInstance()->getFamilyFiles();
    ASSERT_EQ(loaded.size(), 1u);
    EXPECT_EQ(loaded.begin()->first, "lc1a00");
    EXPECT_EQ(traces.lines(),
              (StringList{dir.file("lc4a00/family.key") + ": missing; family directory skipped",
                          dir.file("lc1a00/device.acd") +
                              ": no ES value for D1, QF48: its parts are named like D1-6Q48I?",
                          "Failed to load device.acd of lc2a00",
                          "TarnDeviceMngr failed to load lc2a00 device information.",
                          "Failed to load device.acd of lc3a00",
                          "TarnDeviceMngr failed to load lc3a00 device information."}));
    // Deleting the manager clears the pointers getInstance() would hand out.
    delete TarnDeviceMngr::getInstance();
    EXPECT_EQ(TarnDeviceMngr::m_pMngr, nullptr);
    EXPECT_EQ(PM_DATABASE::_database, nullptr);
}

TEST(ManagerLifecycle, ReloadSemantics) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    DataDirScope scope(dir.path());
    TarnDeviceMngr mngr;
    ASSERT_TRUE(mngr.loadDeviceInfo("lc1a00", true));
    mngr.getFamilyFile("lc1a00")->m_defaultASC = "marker";

    EXPECT_TRUE(mngr.loadDeviceInfo("lc1a00", false));
    EXPECT_EQ(mngr.getFamilyFile("lc1a00")->m_defaultASC, "marker")
        << "no reload asked: the same object stays";

    ASSERT_TRUE(mngr.loadDeviceInfo("lc1a00", true));
    EXPECT_EQ(mngr.getFamilyFile("lc1a00")->m_defaultASC, "") << "reloaded from the files";
}

TEST(ManagerLifecycle, GetInstanceFromInsideInitReturnsTheLoadingManager) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCA");
    writePm(dir, "lc2a00", "LCB");
    DataDirScope scope(dir.path());
    // Progress reports reach code that asks for the manager mid-load.
    std::vector<TarnDeviceMngr*> seen;
    setGuiMsgHandler([&](const char*) { seen.push_back(TarnDeviceMngr::getInstance()); });
    TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
    setGuiMsgHandler(nullptr);
    EXPECT_EQ(seen, (std::vector<TarnDeviceMngr*>{mngr, mngr})) << "one progress tick per PM";
}

TEST(ManagerCatalogue, FamiliesPmsNamesAndKeys) {
    TempDir dir;
    writePm(dir, "lc1a00", "LCF12, LCF2");  // two family names share one PM
    writePm(dir, "lc2a00", "LCF7");
    writePm(dir, "lc5a00", "LCCACHE, LCCACHE2");
    DataDirScope scope(dir.path());
    StringList families;
    TarnDeviceMngr::baseGetAllFamilies(families);
    EXPECT_EQ(families, (StringList{"LCCACHE", "LCCACHE2", "LCF2", "LCF7", "LCF12"}));
    StringList pms{"old"};
    TarnDeviceMngr::baseGetAllPMs(pms);
    EXPECT_EQ(pms, (StringList{"old", "lc5a00", "lc5a00", "lc1a00", "lc2a00", "lc1a00"}))
        << "appends, keeps repeats";
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("lccache2"), "lc5a00") << "family case ignored";
    EXPECT_EQ(TarnDeviceMngr::basePmToFamily("lc5a00"), "LCCACHE") << "the record's first name";
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("LCLATER"), "");

    // Another data directory means another database: answers cached for the
    // first one must not leak into it.
    TempDir other;
    writePm(other, "lc6a00", "LCLATER, LCCACHE2");
    DataDirScope otherScope(other.path());
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("lccache2"), "lc6a00");
    EXPECT_EQ(TarnDeviceMngr::basePmToFamily("lc5a00"), "");
    EXPECT_EQ(TarnDeviceMngr::baseFamilyToPm("LCLATER"), "lc6a00");
    EnvGuard env("DEVCTRL_SETTINGS", dir.write("settings.ini", "Device=ZQ12-6BG100C\n").c_str());
    EXPECT_EQ(TarnDeviceMngr::getDefaultDevice(), "ZQ12-6BG100C");
}
