#include <gtest/gtest.h>

#include <stdexcept>

#include "sds/selection_fixture.h"

using namespace tarn::vyxpn;
using devctrl_test::makeSelectionFamily;
using Strings = std::vector<std::string>;

TEST(SdsPartLists, DistinctValuesInPartNameOrderAndObsoleteFilter) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *makeSelectionFamily(mngr);

    Strings devices{"stale"};
    file.getDevices(devices, false, false);
    // ZR9's only part is obsolete ("PO"), so the device drops out; ZR4 keeps
    // one current part. First seen over byte-ordered part names.
    EXPECT_EQ(devices, (Strings{"ZR12", "ZR4"}));
    file.getDevices(devices, true, false);
    EXPECT_EQ(devices, (Strings{"ZR12", "ZR4", "ZR9"}));

    Strings packages;
    file.getPackages("ZR12", packages, false, false);
    EXPECT_EQ(packages, (Strings{"BG100", "QF48"}));
    file.getPackages("zr12", packages, false, false);
    EXPECT_TRUE(packages.empty()) << "device names match exactly";

    Strings speeds;
    file.getSpeeds("ZR4", "QF48", speeds, false, false);
    EXPECT_EQ(speeds, (Strings{"12"})) << "the -6 part is obsolete (a lone O reads as PO)";
    file.getSpeeds("ZR4", "QF48", speeds, true, false);
    EXPECT_EQ(speeds, (Strings{"12", "6"}));

    Strings conditions;
    file.getOperations("ZR12", "BG100", "6", conditions, false, false);
    EXPECT_EQ(conditions, (Strings{"COM", "IND"}));

    Strings parts{"stale"};
    file.getAllParts(parts, false, false);
    EXPECT_EQ(parts, (Strings{"ZR12-6BG100C", "ZR12-6BG100I", "ZR12-6QF48C", "ZR12-7BG100C",
                              "ZR4-12QF48C"}));
}

TEST(SdsPartLists, AscOnlyAsksTheManagerPerPart) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *makeSelectionFamily(mngr);
    Strings packages;
    file.getPackages("ZR12", packages, false, true);
    EXPECT_EQ(packages, (Strings{"BG100"})) << "QF48 parts carry ASCMaxNum 0";
    Strings devices;
    file.getDevices(devices, true, true);
    EXPECT_EQ(devices, (Strings{"ZR12", "ZR9"}));
    file.getDevices(devices, false, true);
    EXPECT_EQ(devices, (Strings{"ZR12"})) << "both filters must pass";

    // Without a manager nothing is known to take ASC chips.
    TarnSDSFile orphan("zr1a00", nullptr);
    orphan.m_genericDevices = file.m_genericDevices;
    orphan.getDevices(devices, true, true);
    EXPECT_TRUE(devices.empty());
}

TEST(SdsPartLists, MissingColumnLeavesTheListAndShortRowThrows) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *makeSelectionFamily(mngr);
    file.m_genericDevices.m_items[6] = "State";  // no "Status" column any more
    Strings devices{"kept"};
    file.getDevices(devices, true, false);
    EXPECT_EQ(devices, Strings{"kept"});
    Strings conditions{"kept"};
    file.getOperations("ZR12", "BG100", "6", conditions, true, false);
    EXPECT_EQ(conditions, Strings{"kept"});
    Strings parts;
    file.getAllParts(parts, true, false);
    EXPECT_EQ(parts.size(), 7u) << "the part list needs no column";

    TarnDeviceMngr mngr2;
    TarnSDSFile& shortRows = *makeSelectionFamily(mngr2);
    shortRows.m_genericDevices.m_datas["ZR12-6BG100C"] = {"ZR12", "6"};
    EXPECT_THROW(shortRows.getPackages("ZR12", devices, true, false), std::out_of_range);
    std::string device, package, speed, condition = "untouched";
    EXPECT_THROW(shortRows.getNameByPart("ZR12-6BG100C", device, package, speed, condition),
                 std::out_of_range);
    EXPECT_EQ(condition, "untouched");
}

TEST(SdsPartLists, CustomItemsSkipGenerationAndResourceColumns) {
    TarnSDSFile file("zr1a00", nullptr);
    file.m_resourceItems = {"LUT"};
    file.m_pmSection.m_items = {"Status", "PKGIndex"};
    file.m_deviceSection.m_items = {"ASCMaxNum", "LUT", "ES"};
    file.m_packageSection.m_items = {"Condition", "Status"};
    file.m_partSection.m_items = {"Synthesis"};
    Strings items{"first"};
    file.getCustomItems(items);
    EXPECT_EQ(items, (Strings{"first", "Status", "ASCMaxNum", "Status", "Synthesis"}));
}
