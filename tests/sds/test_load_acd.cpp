#include <gtest/gtest.h>

#include <utility>

#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::EnvGuard;
using devctrl_test::TempDir;
using Strings = std::vector<std::string>;

namespace {

const char* kFamilyKey =
    "FAMILY = ZQ1\n"
    "DEVICES = ZQ4, ZQ12\n"
    "PACKAGES = ZQ4, QF48 : ZQ12, QF48, BG100\n"
    "SPEEDS = ZQ4, QF48, 6 : ZQ12, QF48, 6, 7 : ZQ12, BG100, 6\n";

const char* kSharedAcd =
    "ASC_RESOURCE_ITMES = ADC, DAC\n"
    "ASC_ITMES = ADC, DAC, GPIO\n"
    "ASC_DATAS = ASC10, 4, 2, 8 : ASC20, 8, 4, 16\n";

const char* kFamilyAcd =
    "PM_ENABLE = True\n"
    "PKG_ALIAS = BG100, B100, BG100X : QF48, Q48\n"
    "RESOURCE_ITMES = LUT, FF\n"
    "RESOURCE_LABELS = LUT, Logic Cells : FF, Registers : LUT, Ignored : EBR\n"
    "ASC_TYPES = ASC10, ASC20\n"
    "PART_EXCEPTION = ZQ4-6Q48C, ZQ4-6Q48I\n"
    "DEVICE_EXCEPTION = ZQ99\n"
    "PACKAGE_EXCEPTION = ZQ12, BG100 : ZQ12 : ZQ12, BG100\n"
    "PM_ITEMS = SynplifyEnable, DefSynthesis\n"
    "PM_DATAS = 1, synplify, extra\n"
    "DEVICE_ITEMS = Status, ASCMaxNum\n"
    "DEVICE_DATAS = ZQ4, P, 0 : ZQ12, P, 2 : ZQ4, O, 1\n"
    "PACKAGE_ITEMS = PKGIndex, ES\n"
    "PACKAGE_DATAS = ZQ12, BG100, 1, No|ES : ZQ4, QF48, , No\n"
    "PART_ITEMS = Note\n"
    "PART_DATAS = ZQ12-6B100C, listed\n";

struct Family {
    TempDir dir;
    Family(const std::string& familyAcd, bool shared = true) {
        dir.write("zq1a00/family.key", kFamilyKey);
        dir.write("zq1a00/device.acd", familyAcd);
        if (shared)
            dir.write("device.acd", kSharedAcd);
    }
};

}  // namespace

TEST(LoadDeviceAcd, EveryKeyLandsInItsMember) {
    Family family(kFamilyAcd);
    DataDirScope scope(family.dir.path());
    EnvGuard showAll("TARN_SHOW_ALL_DEVICES", nullptr);
    TarnSDSFile file("zq1a00", nullptr);
    ASSERT_TRUE(file.loadDeviceAcd());

    EXPECT_EQ(file.m_partGenerateMethod, "auto") << "absent method means auto";
    EXPECT_EQ(file.m_pkgAlias.at("BG100"), (Strings{"B100", "BG100X"}));
    EXPECT_EQ(file.m_pkgAlias.at("QF48"), (Strings{"Q48"}));
    EXPECT_EQ(file.m_resourceItems, (Strings{"LUT", "FF"}));
    EXPECT_EQ(file.m_resourceLabels.size(), 2u) << "only two-field records count";
    EXPECT_EQ(file.m_resourceLabels.at("LUT"), "Logic Cells") << "the first label wins";
    EXPECT_EQ(file.m_ascTypes, (Strings{"ASC10", "ASC20"}));
    EXPECT_EQ(file.m_partExceptions, (Strings{"ZQ4-6Q48C", "ZQ4-6Q48I"}));
    EXPECT_EQ(file.m_deviceExceptions, (Strings{"ZQ99"}));
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(file.m_packageExceptions, (std::vector<Pair>{{"ZQ12", "BG100"}, {"ZQ12", "BG100"}}))
        << "appended in order, duplicates kept, one-field records skipped";

    EXPECT_EQ(file.m_pmSection.m_items, (Strings{"SynplifyEnable", "DefSynthesis"}));
    ASSERT_EQ(file.m_pmSection.m_datas.size(), 1u);
    EXPECT_EQ(file.m_pmSection.m_datas.at("zq1a00"), (Strings{"1", "synplify", "extra"}));

    EXPECT_EQ(file.m_deviceSection.m_datas.at("ZQ4"), (Strings{"O", "1"})) << "last record wins";
    EXPECT_EQ(file.m_packageSection.m_datas.at("ZQ12_BG100"), (Strings{"1", "No|ES"}));
    EXPECT_EQ(file.m_packageSection.m_datas.at("ZQ4_QF48"), (Strings{"", "No"}))
        << "empty fields are kept";
    EXPECT_EQ(file.m_partSection.m_items, (Strings{"Note"}));
    EXPECT_EQ(file.m_partSection.m_datas.at("ZQ12-6B100C"), (Strings{"listed"}));

    EXPECT_EQ(file.m_ascResourceItems, (Strings{"ADC", "DAC"}));
    EXPECT_EQ(file.m_ascSection.m_items, (Strings{"ADC", "DAC", "GPIO"}));
    EXPECT_EQ(file.m_ascSection.m_datas.at("ASC20"), (Strings{"8", "4", "16"}));
    EXPECT_EQ(file.m_defaultASC, "ASC20") << "the last chip record is the default";
}

TEST(LoadDeviceAcd, SharedFileDefaultEmptyRecordsAndNoSharedFile) {
    Family family(std::string(kFamilyAcd) + "DEVICE_DATAS = ZQ4, P : : ZQ12, P\n");
    family.dir.write("device.acd", std::string(kSharedAcd) +
                                       "ASC_DATAS = ASC10, 1 : ASC20, 2 : \n"
                                       "ASC_DEFAULT = ASC10 : ASC20\n");
    DataDirScope scope(family.dir.path());
    TarnSDSFile file("zq1a00", nullptr);
    ASSERT_TRUE(file.loadDeviceAcd());
    EXPECT_EQ(file.m_defaultASC, "ASC10") << "ASC_DEFAULT overrides, up to the first ':'";
    EXPECT_EQ(file.m_deviceSection.m_datas.count(""), 1u)
        << "a record without fields is an empty row under the empty key";
    EXPECT_TRUE(file.m_deviceSection.m_datas.at("").empty());
    EXPECT_EQ(file.m_ascSection.m_datas.count(""), 1u);

    Family noShared(kFamilyAcd, /*shared=*/false);
    DataDirScope noSharedScope(noShared.dir.path());
    TarnSDSFile alone("zq1a00", nullptr);
    ASSERT_TRUE(alone.loadDeviceAcd()) << "a missing shared file is not a failure";
    EXPECT_TRUE(alone.m_ascSection.m_datas.empty());
    EXPECT_EQ(alone.m_defaultASC, "");
}

TEST(LoadDeviceAcd, EnableGate) {
    for (auto [line, loads] : {std::pair{"PM_ENABLE = TRUE\n", true},
                               {"PM_ENABLE = true\n", true},
                               {"PM_ENABLE = yes\n", false},
                               {"PM_ENABLE = 1\n", false},
                               {"PM_ENABLE =\n", false},
                               {"", false}}) {
        Family family(std::string(line) + "PKG_ALIAS = QF48, Q48\n");
        DataDirScope scope(family.dir.path());
        EnvGuard hidden("TARN_SHOW_ALL_DEVICES", nullptr);
        EXPECT_EQ(TarnSDSFile("zq1a00", nullptr).loadDeviceAcd(), loads) << line;
        EnvGuard showAll("TARN_SHOW_ALL_DEVICES", "");
        EXPECT_TRUE(TarnSDSFile("zq1a00", nullptr).loadDeviceAcd())
            << "any value, even empty, shows every family";
    }
}

TEST(LoadDeviceAcd, PackageAliasesAreMandatory) {
    Family family("PM_ENABLE = true\nPART_GENERATE_METHOD = OPN\nRESOURCE_ITMES = LUT\n");
    DataDirScope scope(family.dir.path());
    TarnSDSFile file("zq1a00", nullptr);
    EXPECT_FALSE(file.loadDeviceAcd());
    EXPECT_EQ(file.m_partGenerateMethod, "OPN") << "read before the alias check, kept as written";
    EXPECT_FALSE(file.m_ascSection.m_items.empty()) << "the shared file was read first";
    EXPECT_TRUE(file.m_resourceItems.empty()) << "nothing after the alias check is read";
}
