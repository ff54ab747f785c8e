// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "devctrl/sds/sds_file.h"

using namespace tarn::vyxpn;

// Part ZR4-6QF48C with items defined at every level of the family data.
TEST(SdsItemValues, LookupOrderPartThenOneLevelThenGeneratedTable) {
    TarnSDSFile file{"zr1a00", nullptr};
    file.m_genericDevices.m_items = {"Device",    "Speed",  "Package", "ShortPackage",
                                     "Condition", "Suffix", "Flow",    "Generated"};
    file.m_genericDevices.m_datas["ZR4-6QF48C"] = {"ZR4", "6", "QF48",       "QF48C",
                                                   "COM", "",  "from-table", "gen"};
    file.m_pmSection.m_items = {"Flow", "Vendor"};
    file.m_pmSection.m_datas["zr1a00"] = {"pm-flow", "acme"};
    file.m_deviceSection.m_items = {"Flow", "Pins"};
    file.m_deviceSection.m_datas["ZR4"] = {"device-flow", "48"};
    file.m_packageSection.m_items = {"Pins"};
    file.m_partSection.m_items = {"Override", "Blank"};
    file.m_partSection.m_datas["ZR4-6QF48C"] = {"part-value", ""};

    EXPECT_EQ(file.getItemValue("Override", "ZR4-6QF48C", "d"), "part-value");
    // The part's own row answers even when its cell is empty.
    EXPECT_EQ(file.getItemValue("Blank", "ZR4-6QF48C", "d"), "d");
    // The device table defines Flow: neither the family value nor the
    // generated table is reached.
    EXPECT_EQ(file.getItemValue("Flow", "ZR4-6QF48C", "d"), "device-flow");
    EXPECT_EQ(file.getItemValue("Vendor", "ZR4-6QF48C", "d"), "acme");
    // Pins belongs to the package table, which has no ZR4_QF48 row; there is
    // no fall-back to the device row, so the generated table is asked.
    EXPECT_EQ(file.getItemValue("Pins", "ZR4-6QF48C", "d"), "d");
    EXPECT_EQ(file.getItemValue("Generated", "ZR4-6QF48C", "d"), "gen");
    EXPECT_EQ(file.getItemValue("Vendor", "ZR4-7QF48C", "d"), "d") << "unknown part";
}
