#include <gtest/gtest.h>

#include <string>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/test_env.h"

using devctrl_test::EnvGuard;
using devctrl_test::TempDir;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;

namespace {

// A family with a generated part table: two parts that differ only in their
// suffix, and two speed grades of one device and package.
TarnSDSFile* makeFamily(TarnDeviceMngr& mngr) {
    auto* file = new TarnSDSFile("zr1a00", &mngr);
    auto& parts = file->m_genericDevices;
    parts.m_items = {"Device", "Speed", "Package", "ShortPackage", "Condition", "Suffix"};
    auto row = [&](const std::string& part, std::vector<std::string> cells) {
        parts.m_datas[part] = cells;
    };
    row("ZR12-6BG100C", {"ZR12", "6", "BG100", "BG100", "COM", ""});
    row("ZR12-7BG100C", {"ZR12", "7", "BG100", "BG100", "COM", ""});
    row("ZR12-6BG100CTR", {"ZR12", "6", "BG100", "BG100", "COM", "TR"});
    row("ZR12-6BG100CES", {"ZR12", "6", "BG100", "BG100", "COM", "ES"});
    row("ZR4-5QF48I", {"ZR4", "5", "QF48", "QF48", "IND", "HV"});
    return file;
}

}  // namespace

TEST(PartNames, GetPartNameMatchesWithoutCaseAndTakesTheFirstInKeyOrder) {
    TarnDeviceMngr mngr;
    mngr.adoptFamilyFile(makeFamily(mngr));
    EXPECT_EQ(mngr.getPartName("zr1a00", "zr4", "qf48", "5", "ind"), "ZR4-5QF48I");
    // Suffix-only variants: "ZR12-6BG100C" sorts before "...CES" and "...CTR".
    EXPECT_EQ(mngr.getPartName("zr1a00", "ZR12", "BG100", "6", "COM"), "ZR12-6BG100C");
    EXPECT_EQ(mngr.getPartName("zr1a00", "ZR12", "BG100", "7", "Com"), "ZR12-7BG100C");
    EXPECT_EQ(mngr.getPartName("zr1a00", "ZR12", "BG100", "6", "IND"), "");
    EXPECT_EQ(mngr.getPartName("zr9z99", "ZR12", "BG100", "6", "COM"), "");
    // Without a Condition column nothing matches.
    mngr.getFamilyFile("zr1a00")->m_genericDevices.m_items[4] = "State";
    EXPECT_EQ(mngr.getPartName("zr1a00", "ZR4", "QF48", "5", "IND"), "");
}

TEST(PartNames, InnerNameIgnoresSpeedAndConditionAndKeepsTheSuffix) {
    TarnDeviceMngr mngr;
    mngr.adoptFamilyFile(makeFamily(mngr));
    std::string fast, slow, withSuffix;
    ASSERT_TRUE(mngr.getInnerDeviceName("ZR12-6BG100C", fast));
    ASSERT_TRUE(mngr.getInnerDeviceName("ZR12-7BG100C", slow));
    EXPECT_EQ(fast, "ZR12-XXBG100");
    EXPECT_EQ(slow, fast);
    ASSERT_TRUE(mngr.getInnerDeviceName("ZR4-5QF48I", withSuffix));
    EXPECT_EQ(withSuffix, "ZR4-XXQF48HV");

    std::string untouched = "keep";
    EXPECT_FALSE(mngr.getInnerDeviceName("zr12-6bg100c", untouched));  // keys match exactly
    EXPECT_FALSE(mngr.getInnerDeviceName("ZR99-1XX1C", untouched));
    EXPECT_EQ(untouched, "keep");
}

TEST(PartNames, NewFormatDeviceNameResultCodes) {
    TempDir data;
    EnvGuard env("DEVCTRL_DATA_DIR", data.path().c_str());
    TarnDeviceMngr mngr;
    std::string newName = "keep";
    EXPECT_EQ(mngr.getNewFormatDeviceName("ZR1", newName), 0);  // no list file
    EXPECT_EQ(newName, "keep");

    data.write("pqrndev.lst",
               "[Name Transfer]\n"
               "ZR1=ZR1N\n"
               "BOTH=BOTH_RENAMED\n"
               "EMPTY=\n"
               "[MIGRATION]\n"
               "BOTH=BOTH_MIGRATED\n"
               "ZR2=ZR2M\n"
               "EMPTY=EMPTY_MIGRATED\n"
               "ZR5=ZR5M\n"
               "[Not Recommend]\n"
               "ZR3=ZR3R\n"
               "ZR5=ZR5R\n");
    auto translate = [&mngr](const std::string& name, std::string incoming) {
        int code = mngr.getNewFormatDeviceName(name, incoming);
        return std::to_string(code) + " " + incoming;
    };
    EXPECT_EQ(translate("ZR1", ""), "1 ZR1N");
    EXPECT_EQ(translate("ZR1", "ZR1"), "1 ZR1N");  // renames are always answered
    EXPECT_EQ(translate("BOTH", ""), "1 BOTH_RENAMED");
    EXPECT_EQ(translate("ZR2", ""), "2 ZR2M");
    EXPECT_EQ(translate("ZR2", "OTHER"), "2 ZR2M");
    EXPECT_EQ(translate("ZR3", ""), "3 ZR3R");
    // An empty value is no answer: the next section is asked.
    EXPECT_EQ(translate("EMPTY", ""), "2 EMPTY_MIGRATED");
    // The old name passed as newName suppresses migration and not-recommended
    // answers and leaves newName as it came.
    EXPECT_EQ(translate("ZR2", "ZR2"), "0 ZR2");
    EXPECT_EQ(translate("ZR3", "ZR3"), "0 ZR3");
    EXPECT_EQ(translate("ZR5", "ZR5"), "0 ZR5");
    EXPECT_EQ(translate("ZR5", ""), "2 ZR5M");
    EXPECT_EQ(translate("UNKNOWN", "keep"), "0 keep");
}
