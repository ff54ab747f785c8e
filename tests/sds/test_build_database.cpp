// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using tarn::vyxpn::StringList;

namespace {

// Base lists: ZR4 in QF48 (speed 6) and BG100 (6, 7); ZR12 in BG100 (6).
const char* kFamilyKey =
    "FAMILY = ZR1\nDEVICES = ZR4, ZR12\nPACKAGES = ZR4, QF48, BG100 : ZR12, BG100\n"
    "SPEEDS = ZR4, QF48, 6 : ZR4, BG100, 6, 7 : ZR12, BG100, 6\n";

const char* kAcdBase =
    "PM_ENABLE = true\nPKG_ALIAS = BG100, B100\nRESOURCE_ITMES = LUT, FF\n"
    "RESOURCE_LABELS = LUT, Logic cells\n"
    "DEVICE_ITEMS = Status, ASCMaxNum\nDEVICE_DATAS = ZR4, P, 0 : ZR12, P, 2\n"
    "PACKAGE_ITEMS = ES, Condition, LUT\n"
    "PACKAGE_DATAS = ZR4, QF48, No|ES, IC, 640 : ZR4, BG100, No, a, 1280 : "
    "ZR12, BG100, No, C, 2560\n";

template <typename Map>
StringList keys(const Map& map) {
    StringList names;
    for (const auto& entry : map)
        names.push_back(entry.first);
    return names;
}

// Loads one family from a data directory written for the test.
struct BuiltFamily {
    explicit BuiltFamily(const std::string& acdExtra)
        : scope((dir.write("zr1a00/family.key", kFamilyKey),
                 dir.write("zr1a00/device.acd", std::string(kAcdBase) + acdExtra), dir.path())),
          loaded(mngr.loadDeviceInfo("zr1a00", true)) {}
    TarnSDSFile& file() { return *mngr.getFamilyFile("zr1a00"); }
    StringList parts() { return keys(file().m_genericDevices.m_datas); }
    StringList resourceKeys() { return keys(file().m_deviceInfo.m_datas); }
    const StringList& row(const std::string& part) {
        return file().m_genericDevices.m_datas.at(part);
    }

    devctrl_test::TempDir dir;
    devctrl_test::DataDirScope scope;
    TarnDeviceMngr mngr;
    bool loaded;
};

}  // namespace

TEST(SdsBuildDatabase, AutoGeneratesEveryCombination) {
    BuiltFamily family("");
    ASSERT_TRUE(family.loaded);
    TarnSDSFile& file = family.file();
    EXPECT_EQ(file.m_genericDevices.m_items,
              (StringList{"Device", "Speed", "Package", "ShortPackage", "Condition", "Suffix",
                          "Status", "ASCMaxNum"}))
        << "ES, Condition and resource items are not custom items";
    EXPECT_EQ(family.parts(), (StringList{"ZR12-6B100C", "ZR4-6B100E", "ZR4-6QF48C", "ZR4-6QF48CES",
                                          "ZR4-6QF48I", "ZR4-6QF48IES", "ZR4-7B100E"}));
    EXPECT_EQ(family.row("ZR4-6QF48IES"),
              (StringList{"ZR4", "6", "QF48", "QF48IES", "IND", "ES", "P", "0"}));
    // Automotive: the name and short code say E, the condition says AUTO.
    EXPECT_EQ(family.row("ZR4-7B100E"),
              (StringList{"ZR4", "7", "BG100", "B100E", "AUTO", "", "P", "0"}));
    EXPECT_EQ(file.m_deviceInfo.m_items, (StringList{"Logic cells", "FF"}));
    EXPECT_EQ(file.m_deviceInfo.m_datas.at("ZR4_QF48"), (StringList{"640", "-"}));
    EXPECT_EQ(family.resourceKeys(), (StringList{"ZR12_BG100", "ZR4_BG100", "ZR4_QF48"}));

    // Without a package row the suffix list is "?" and the conditions I and C.
    BuiltFamily bare("PACKAGE_DATAS = ZR4, QF48, No, C, 640\n");
    ASSERT_TRUE(bare.loaded);
    EXPECT_EQ(bare.parts(),
              (StringList{"ZR12-6B100C?", "ZR12-6B100I?", "ZR4-6B100C?", "ZR4-6B100I?",
                          "ZR4-6QF48C", "ZR4-7B100C?", "ZR4-7B100I?"}));
    EXPECT_EQ(bare.file().m_deviceInfo.m_datas.at("ZR4_BG100"), (StringList{"-", "-"}));

    // Conditions go left to right, suffixes in order: of equal names the last
    // combination stays.
    BuiltFamily lastIsE("PACKAGE_DATAS = ZR4, QF48, ES|es, AE, 1\n");
    ASSERT_TRUE(lastIsE.loaded);
    EXPECT_EQ(lastIsE.row("ZR4-6QF48EES"),
              (StringList{"ZR4", "6", "QF48", "QF48Ees", "", "es", "P", "0"}));
}

TEST(SdsBuildDatabase, AutoExceptionsAndListedMode) {
    const std::string exceptions = "DEVICE_EXCEPTION = ZR12\nPACKAGE_EXCEPTION = ZR4, BG100\n";
    BuiltFamily excepted(exceptions + "PART_EXCEPTION = ZR4-6QF48CES, ZR4-6QF48I\n");
    ASSERT_TRUE(excepted.loaded);
    EXPECT_EQ(excepted.parts(), (StringList{"ZR4-6QF48C", "ZR4-6QF48IES"}));
    EXPECT_EQ(excepted.resourceKeys(), (StringList{"ZR4_QF48"}));

    // Listed parts are the only ones allowed and no exception list applies
    // to them, but excluded devices still get no resource rows.
    BuiltFamily listed(exceptions +
                       "PART_EXCEPTION = ZR4-6QF48C\nPART_ITEMS = Status\n"
                       "PART_DATAS = ZR12-6B100C, A : ZR4-7B100E, O : ZR4-6QF48C, P : "
                       "ZR4-9QF48C, P\n");
    ASSERT_TRUE(listed.loaded);
    EXPECT_EQ(listed.parts(), (StringList{"ZR12-6B100C", "ZR4-6QF48C", "ZR4-7B100E"}));
    EXPECT_EQ(listed.resourceKeys(), (StringList{"ZR4_QF48"}));
    EXPECT_EQ(listed.row("ZR12-6B100C"),
              (StringList{"ZR12", "6", "BG100", "B100C", "COM", "", "A", "2", "A"}))
        << "custom items: device Status and ASCMaxNum, then the part's own Status";
}

TEST(SdsBuildDatabase, ListedMethodTakesPartsAsWritten) {
    BuiltFamily family(
        "PART_GENERATE_METHOD = OpN\nDEVICE_EXCEPTION = ZR12\nPART_ITEMS = Status, Note\n"
        "PART_DATAS = P1, ZR4, QF48, 6, c, X, O, n1 : P2, ZR4, QF48, 7, I, : "
        "P3, ZR12, BG100, 6, I, , P, n3\n");
    ASSERT_TRUE(family.loaded);
    TarnSDSFile& file = family.file();
    EXPECT_EQ(file.m_genericDevices.m_items,
              (StringList{"Device", "Package", "Speed", "Condition", "Suffix", "Status",
                          "ASCMaxNum", "Status", "Note"}));
    // P2 has five values only: the walk stops there, so P3 is not built.
    EXPECT_EQ(family.parts(), StringList{"P1"});
    // The part table takes Status from the part row before the device.
    EXPECT_EQ(family.row("P1"), (StringList{"ZR4", "QF48", "6", "COM", "X", "O", "0", "O", "n1"}));
    EXPECT_TRUE(file.isObsDevice("P1"));
    // The resource table covers every base device and package, exceptions
    // or not.
    EXPECT_EQ(family.resourceKeys(), (StringList{"ZR12_BG100", "ZR4_BG100", "ZR4_QF48"}));
}

TEST(SdsBuildDatabase, MethodChoiceAndEmptyListedCondition) {
    TarnSDSFile file("zr9a00", nullptr);
    // Only "opn", in any case but without blanks, lists parts as written.
    file.m_partGenerateMethod = "opn ";
    file.m_partSection.m_datas["P1"] = {"D", "K", "6", "I", "", "x"};
    file.buildDatabase();
    EXPECT_EQ(file.m_genericDevices.m_datas.count("P1"), 0u);
    // A listed part without a condition letter cannot be named.
    file.m_partGenerateMethod = "opn";
    file.m_partSection.m_datas["P0"] = {"D", "K", "6", "", "", "x"};
    EXPECT_THROW(file.buildDatabase(), std::out_of_range);
}
