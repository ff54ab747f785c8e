#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"

using namespace tarn::vyxpn;

namespace {

// One part ZR4-6QF48C of device ZR4 in QF48, with items defined at every
// level of the family data.
struct ItemFamily {
    TarnSDSFile file{"zr1a00", nullptr};
    ItemFamily() {
        file.m_genericDevices.m_items = {"Device",    "Speed",  "Package", "ShortPackage",
                                         "Condition", "Suffix", "Flow",    "Generated"};
        file.m_genericDevices.m_datas["ZR4-6QF48C"] = {"ZR4", "6", "QF48",       "QF48C",
                                                       "COM", "",  "from-table", "gen"};
        file.m_pmSection.m_items = {"Flow", "Vendor"};
        file.m_pmSection.m_datas["zr1a00"] = {"pm-flow", "acme"};
        file.m_deviceSection.m_items = {"Flow", "Pins"};
        file.m_deviceSection.m_datas["ZR4"] = {"device-flow", "48"};
        file.m_packageSection.m_items = {"Pins", "Speedy"};
        file.m_packageSection.m_datas["ZR9_QF48"] = {"99", "yes"};
        file.m_partSection.m_items = {"Override", "Blank"};
        file.m_partSection.m_datas["ZR4-6QF48C"] = {"part-value", ""};
    }
};

}  // namespace

TEST(SdsItemValues, LookupOrderPartThenOneLevelThenGeneratedTable) {
    ItemFamily f;
    const TarnSDSFile& file = f.file;
    EXPECT_EQ(file.getItemValue("Override", "ZR4-6QF48C", "d"), "part-value");
    // The part's own row answers even when its cell is empty: the default,
    // not the device-level value.
    EXPECT_EQ(file.getItemValue("Blank", "ZR4-6QF48C", "d"), "d");
    // The device table defines Flow, so the family value is never reached
    // and neither is the generated table.
    EXPECT_EQ(file.getItemValue("Flow", "ZR4-6QF48C", "d"), "device-flow");
    EXPECT_EQ(file.getItemValue("Vendor", "ZR4-6QF48C", "d"), "acme");
    // Pins belongs to the package table; ZR4_QF48 has no row there, and
    // there is no fall-back to the device row that has Pins too. Nothing was
    // found at that level, so the generated table is asked (no Pins there).
    EXPECT_EQ(file.getItemValue("Pins", "ZR4-6QF48C", "d"), "d");
    EXPECT_EQ(file.getItemValue("Generated", "ZR4-6QF48C", "d"), "gen");
    EXPECT_EQ(file.getItemValue("Vendor", "ZR4-7QF48C", "d"), "d") << "unknown part";
    bool found = false;
    EXPECT_EQ(file._internalGetDevPkgItemValue(found, "Pins", "ZR9", "QF48", "d"), "99");
    EXPECT_TRUE(found) << "the package row answers when it exists";
    // A row shorter than the column list simply has no cell.
    f.file.m_deviceSection.m_items.push_back("Grade");
    EXPECT_EQ(file._internalGetDevPkgItemValue(found, "Grade", "ZR4", "QF48", "d"), "d");
    EXPECT_FALSE(found);
}
