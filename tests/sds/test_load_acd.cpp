// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <utility>

#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_list.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::EnvGuard;
using tarn::vyxpn::StringList;

namespace {

const char* kSharedAcd = "ASC_ITMES = ADC, DAC\nASC_DATAS = ASC10, 4, 2 : ASC20, 8, 4\n";
const char* kMinimalAcd = "PM_ENABLE = true\nPKG_ALIAS = QF48, Q48\n";

// A data directory with family zq1a00 and, if given, the shared chip file.
struct Family {
    devctrl_test::TempDir dir;
    Family(const std::string& familyAcd, const std::string& sharedAcd = kSharedAcd) {
        dir.write("zq1a00/family.key",
                  "FAMILY = ZQ1\nDEVICES = ZQ4\nPACKAGES = ZQ4, QF48\n"
                  "SPEEDS = ZQ4, QF48, 6\n");
        dir.write("zq1a00/device.acd", familyAcd);
        if (!sharedAcd.empty())
            dir.write("device.acd", sharedAcd);
    }
    bool load(TarnSDSFile& file) {
        DataDirScope scope(dir.path());
        return file.loadDeviceAcd();
    }
};

}  // namespace

TEST(LoadDeviceAcd, RecordRules) {
    Family family(
        "PM_ENABLE = True\nPKG_ALIAS = BG100, B100, BG100X : QF48, Q48\n"
        "RESOURCE_LABELS = LUT, Logic Cells : FF, Registers : LUT, Ignored : EBR\n"
        "DEVICE_ITEMS = Status\nDEVICE_DATAS = ZQ4, P : ZQ4, O\n"
        "PACKAGE_ITEMS = PKGIndex, ES\nPACKAGE_DATAS = ZQ4, QF48, , No\n");
    TarnSDSFile file("zq1a00", nullptr);
    ASSERT_TRUE(family.load(file));
    EXPECT_EQ(file.m_partGenerateMethod, "auto") << "absent method means auto";
    EXPECT_EQ(file.m_pkgAlias.at("BG100"), (StringList{"B100", "BG100X"}));
    EXPECT_EQ(file.m_resourceLabels.size(), 2u) << "only two-field records count";
    EXPECT_EQ(file.m_resourceLabels.at("LUT"), "Logic Cells") << "the first label wins";
    EXPECT_EQ(file.m_deviceSection.m_datas.at("ZQ4"), (StringList{"O"})) << "last record wins";
    EXPECT_EQ(file.m_packageSection.m_datas.at("ZQ4_QF48"), (StringList{"", "No"}));
    EXPECT_EQ(file.m_ascSection.m_datas.at("ASC20"), (StringList{"8", "4"}));
    EXPECT_EQ(file.m_defaultASC, "ASC20") << "the last chip record is the default";

    TarnSDSFile overridden("zq1a00", nullptr);
    ASSERT_TRUE(Family(kMinimalAcd, std::string(kSharedAcd) + "ASC_DEFAULT = ASC10 : ASC20\n")
                    .load(overridden));
    EXPECT_EQ(overridden.m_defaultASC, "ASC10") << "ASC_DEFAULT overrides, up to the first ':'";
    TarnSDSFile alone("zq1a00", nullptr);
    EXPECT_TRUE(Family(kMinimalAcd, "").load(alone)) << "a missing shared file is no failure";
}

TEST(LoadDeviceAcd, EnableGate) {
    for (auto [line, loads] :
         {std::pair{"PM_ENABLE = TRUE\n", true}, {"PM_ENABLE = yes\n", false}}) {
        Family family(std::string(line) + "PKG_ALIAS = QF48, Q48\n");
        EnvGuard hidden("TARN_SHOW_ALL_DEVICES", nullptr);
        TarnSDSFile gated("zq1a00", nullptr), shown("zq1a00", nullptr);
        EXPECT_EQ(family.load(gated), loads) << line;
        EnvGuard showAll("TARN_SHOW_ALL_DEVICES", "");
        EXPECT_TRUE(family.load(shown)) << "any value, even empty, shows every family";
    }
}
