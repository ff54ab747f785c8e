// SPDX-License-Identifier: MIT
// One family with data that make start-up raise: the error says where the
// bad value is, a failed getInstance() leaves no manager behind, and a host
// that asks for it can load the other families.

#include <gtest/gtest.h>

#include <algorithm>

#include "reliability/bad_data_support.h"

namespace {

using namespace devctrl_test;
using tarn::vyxpn::DataError;
using tarn::vyxpn::TarnDeviceMngr;

struct BrokenCase {
    std::string deviceAcd;
    const char* key;
    const char* row;
    const char* problem;
};

// Each way a device table makes start-up raise, and where the error says
// the bad value is.
std::vector<BrokenCase> brokenCases() {
    return {
        {cleanDeviceAcd() +
             "PACKAGE_ITEMS = ES, Condition, LUT, PKGIndex\n"
             "PACKAGE_DATAS = BQ1, BG10, No, C, 100, -1 : BQ2, BG10, No, CI, 200, 0\n",
         "PACKAGE_DATAS", "BQ1, BG10", "PKGIndex -1 is negative"},
        {cleanDeviceAcd() +
             "DEVICE_ITEMS = Status, PKGIndex\nDEVICE_DATAS = BQ1, P, 0 : BQ2, P, -2\n",
         "DEVICE_DATAS", "BQ2", "PKGIndex -2 is negative"},
        {cleanDeviceAcd() + "PM_ITEMS = PKGIndex\nPM_DATAS = -1\n", "PM_DATAS", "",
         "PKGIndex -1 is negative"},
        {"PM_ENABLE = true\nPART_GENERATE_METHOD = opn\nPKG_ALIAS = BG10, B10\n"
         "PART_ITEMS = Status\nPART_DATAS = BQ1-1B10C, BQ1, BG10, 1, , , P\n",
         "PART_DATAS", "BQ1-1B10C", "no condition"},
    };
}

// A healthy family (BDP, PM bd0a00) loads before the broken one.
void writeInstall(const TempDir& dir, const std::string& brokenDeviceAcd) {
    writeFamily(dir, cleanFamilyKey(), brokenDeviceAcd);
    dir.write("bd0a00/family.key",
              "FAMILY = BDP\nDEVICES = P1\nPACKAGES = P1, BG10\nSPEEDS = P1, BG10, 1\n");
    dir.write("bd0a00/device.acd", "PM_ENABLE = true\nPKG_ALIAS = BG10, B10\n");
}

void expectLocated(const DataError& error, const TempDir& dir, const BrokenCase& c) {
    EXPECT_EQ(error.pm(), kBadDataPm);
    EXPECT_EQ(error.file(), dir.file(std::string(kBadDataPm) + "/device.acd"));
    EXPECT_EQ(error.key(), c.key);
    EXPECT_EQ(error.row(), c.row);
    EXPECT_EQ(error.problem(), c.problem);
}

TEST(BrokenFamily, StartUpRaisesWhereTheValueIsAndLeavesNoManager) {
    for (const BrokenCase& c : brokenCases()) {
        TempDir dir;
        writeInstall(dir, c.deviceAcd);
        DataDirScope scope(dir.path());
        // The same error every time, and never a manager to fall back on.
        for (int attempt = 0; attempt < 2; ++attempt) {
            try {
                TarnDeviceMngr::getInstance();
                ADD_FAILURE() << c.key << ": no error";
            } catch (const std::out_of_range& error) {
                const auto* located = dynamic_cast<const DataError*>(&error);
                ASSERT_NE(located, nullptr) << error.what();
                expectLocated(*located, dir, c);
            }
            EXPECT_EQ(TarnDeviceMngr::m_pMngr, nullptr) << c.key;
        }
        // Repaired data load on the next call, both families present.
        writeFamily(dir, cleanFamilyKey(), cleanDeviceAcd());
        TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance();
        EXPECT_NE(mngr->getFamilyFile(kBadDataPm), nullptr) << c.key;
        EXPECT_NE(mngr->getFamilyFile("bd0a00"), nullptr) << c.key;
    }
}

TEST(BrokenFamily, SkippingLoadsTheOthersAndKeepsTheError) {
    for (const BrokenCase& c : brokenCases()) {
        TempDir dir;
        writeInstall(dir, c.deviceAcd);
        DataDirScope scope(dir.path());
        TarnDeviceMngr* mngr = TarnDeviceMngr::getInstance(TarnDeviceMngr::BrokenFamilies::Skip);
        EXPECT_EQ(mngr->getFamilyFile(kBadDataPm), nullptr) << c.key;
        EXPECT_NE(mngr->getFamilyFile("bd0a00"), nullptr) << c.key;
        ASSERT_EQ(mngr->loadFailures().size(), 1u) << c.key;
        expectLocated(mngr->loadFailures()[0], dir, c);
        // The host's own reload of the family raises as designed.
        EXPECT_THROW(mngr->loadDeviceInfo(kBadDataPm, true), DataError) << c.key;
    }
}

TEST(BrokenFamily, TheToolNamesTheFamilyAndAnswersForTheOthers) {
    for (const BrokenCase& c : brokenCases()) {
        TempDir dir;
        writeInstall(dir, c.deviceAcd);
        std::string out, err;
        EXPECT_EQ(runTool("-q --data " + dir.path() + " families", &out, &err), 0) << err;
        EXPECT_EQ(out, "BDP\n");
        const std::string where = dir.file(std::string(kBadDataPm) + "/device.acd") + ": " + c.key +
                                  (*c.row ? std::string(" record ") + c.row : "") + ": " +
                                  c.problem;
        EXPECT_EQ(err, "devctrl: family BDQ (PM bd1a00) not loaded: " + where + "\n");
        // Asked for by name, the broken family is refused in one line.
        EXPECT_EQ(runTool("-q --data " + dir.path() + " devices BDQ", &out, &err), 1);
        EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 2) << err;
        EXPECT_NE(err.find("did not load"), std::string::npos) << err;
    }
}

}  // namespace
