#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/pm_database.h"
#include "support/test_env.h"

using devctrl_test::DataDirScope;
using devctrl_test::TempDir;
using devctrl_test::TraceCapture;

namespace {

std::vector<std::string> pmCodes(const PM_DATABASE& database) {
    std::vector<std::string> codes;
    for (const PM_RECORD& record : database.pms())
        codes.push_back(record.pm);
    return codes;
}

}  // namespace

TEST(PmDatabase, DetectsInstalledPmsInByteOrder) {
    TempDir data;
    data.write("zr1a00/family.key", "FAMILY = ZR1, Zr1Lp\n");
    data.write("ZR9/family.key", "FAMILY = ZR9\n");
    data.write("zr10/family.key", "# no family here\nDEVICES = ZR4\n");
    data.write("zr11/family.key", "FAMILY = , \n");
    data.write("zr12/device.acd", "PM_ENABLE = true\n");
    data.write("family.key", "FAMILY = TOP\n");
    data.write("zb/family.key", "FAMILY = Zr1lp\n");  // sorts after ZR9, before zr1a00

    PM_DATABASE database(data.path());
    EXPECT_EQ(pmCodes(database), (std::vector<std::string>{"ZR9", "zb", "zr1a00"}));
    const PM_RECORD* record = database.findPm("zr1a00");
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->directory, data.path() + "/zr1a00");
    EXPECT_STREQ(record->familyName.getstring(), "ZR1");
    EXPECT_EQ(record->familyNames, (std::vector<std::string>{"ZR1", "Zr1Lp"}));
    ASSERT_NE(record->keys, nullptr);
    EXPECT_STREQ(record->keys->getkeyeddata("FAMILY"), "ZR1, Zr1Lp");
    EXPECT_EQ(database.findPm("ZR1A00"), nullptr);  // codes are exact
    EXPECT_EQ(database.findPm(nullptr), nullptr);
    EXPECT_EQ(database.installedFamilies(),
              (std::vector<std::string>{"ZR9", "Zr1lp", "ZR1", "Zr1Lp"}));
    // Family names match in any case; of two PMs naming one family the
    // first in code order wins, and a code is not a family.
    ASSERT_NE(database.findFamily("zr1lp"), nullptr);
    EXPECT_EQ(database.findFamily("zr1lp")->pm, "zb");
    EXPECT_EQ(database.findFamily("zr1"), record);
    EXPECT_EQ(database.findFamily("zr1a00"), nullptr);
    EXPECT_EQ(database.findFamily(nullptr), nullptr);
}

TEST(PmDatabase, ReadsDevicesPackagesAndSpeedConditions) {
    TempDir data;
    data.write("zr1a00/family.key",
               "FAMILY = ZR1\n"
               "DEVICES = ZR4, ZR12, ZR4\n"
               "PACKAGES = ZR4, QF48, BG100 : ZR12, BG100 : ZR99, QF48 : ZR4, QF48, CS64\n"
               "SPEEDS = ZR4, QF48, 6/CI, 7/C, 8/I, 9, 10/X, 6/I : ZR4, BG256, 6 : "
               "ZR99, QF48, 6 : ZR12, BG100, 5 /c\n");
    PM_DATABASE database(data.path());
    const PM_RECORD* record = database.findPm("zr1a00");
    ASSERT_NE(record, nullptr);
    ASSERT_EQ(record->devices.size(), 2u);

    const PM_DEVICE_RECORD* zr4 = record->findDevice("ZR4");
    ASSERT_NE(zr4, nullptr);
    ASSERT_EQ(zr4->packages.size(), 3u);
    EXPECT_EQ(zr4->packages[0].name, "QF48");
    EXPECT_EQ(zr4->packages[2].name, "CS64");
    EXPECT_TRUE(zr4->packages[1].speeds.empty());  // BG256 is not a ZR4 package

    const std::vector<PM_SPEED_RECORD>& speeds = zr4->packages[0].speeds;
    std::vector<std::string> grades;
    std::vector<int> flags;
    for (const PM_SPEED_RECORD& speed : speeds) {
        grades.push_back(speed.grade);
        flags.push_back(speed.conditionFlags);
    }
    EXPECT_EQ(grades, (std::vector<std::string>{"6", "7", "8", "9", "10"}));
    const int both = PM_COND_COMMERCIAL | PM_COND_INDUSTRIAL;
    EXPECT_EQ(flags, (std::vector<int>{both, PM_COND_COMMERCIAL, PM_COND_INDUSTRIAL, both, 0}));

    const PM_DEVICE_RECORD* zr12 = record->findDevice("ZR12");
    ASSERT_NE(zr12, nullptr);
    ASSERT_EQ(zr12->packages.at(0).speeds.size(), 1u);
    EXPECT_EQ(zr12->packages[0].speeds[0].grade, "5");
    EXPECT_EQ(zr12->packages[0].speeds[0].conditionFlags, PM_COND_COMMERCIAL);
    EXPECT_EQ(record->findDevice("ZR99"), nullptr);
}

TEST(PmDatabase, MissingDirectoryIsEmptyAndTracedWhenNamed) {
    TempDir data;
    EXPECT_TRUE(PM_DATABASE(data.file("absent")).pms().empty());

    TraceCapture trace;
    DataDirScope scope(data.file("absent"));
    EXPECT_TRUE(PM_DATABASE::buildMe()->pms().empty());
    EXPECT_TRUE(trace.contains("data directory does not exist: " + data.file("absent")));
}
