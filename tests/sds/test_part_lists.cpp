#include <gtest/gtest.h>

#include <stdexcept>

#include "sds/selection_fixture.h"

using namespace tarn::vyxpn;
using devctrl_test::makeSelectionFamily;
using Strings = std::vector<std::string>;

TEST(SdsPartLists, DistinctValuesInPartNameOrderAndFilters) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *makeSelectionFamily(mngr);
    Strings list{"stale"};
    // ZR9's only part is obsolete ("PO"); first seen over byte-ordered names.
    file.getDevices(list, false, false);
    EXPECT_EQ(list, (Strings{"ZR12", "ZR4"}));
    file.getDevices(list, true, false);
    EXPECT_EQ(list, (Strings{"ZR12", "ZR4", "ZR9"}));
    file.getSpeeds("ZR4", "QF48", list, false, false);
    EXPECT_EQ(list, (Strings{"12"})) << "the -6 part is obsolete (a lone O reads as PO)";
    file.getOperations("ZR12", "BG100", "6", list, false, false);
    EXPECT_EQ(list, (Strings{"COM", "IND"}));
    file.getAllParts(list, false, false);
    EXPECT_EQ(list, (Strings{"ZR12-6BG100C", "ZR12-6BG100I", "ZR12-6QF48C", "ZR12-7BG100C",
                             "ZR4-12QF48C"}));

    // ASC-only asks the manager per part: QF48 parts carry ASCMaxNum 0.
    file.getPackages("ZR12", list, false, true);
    EXPECT_EQ(list, (Strings{"BG100"}));
    file.getDevices(list, false, true);
    EXPECT_EQ(list, (Strings{"ZR12"})) << "both filters must pass";
    TarnSDSFile orphan("zr1a00", nullptr);
    orphan.m_genericDevices = file.m_genericDevices;
    orphan.getDevices(list, true, true);
    EXPECT_TRUE(list.empty()) << "without a manager no part takes ASC chips";

    // Without a Status column the list is left as it was; a short row throws.
    file.m_genericDevices.m_items[6] = "State";
    file.invalidateIndexes();
    list = {"kept"};
    file.getDevices(list, true, false);
    EXPECT_EQ(list, Strings{"kept"});
    file.m_genericDevices.m_items[6] = "Status";
    file.m_genericDevices.m_datas["ZR12-6BG100C"] = {"ZR12", "6"};
    file.invalidateIndexes();
    EXPECT_THROW(file.getPackages("ZR12", list, true, false), std::out_of_range);
}
