// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/util/string_list.h"
#include "devctrl/util/string_utils.h"
#include "sds/selection_fixture.h"

using namespace tarn::vyxpn;
using tarn::vyxpn::StringList;

// ZR9's only part is obsolete ("PO"); QF48 parts carry ASCMaxNum 0.
class PartLists : public ::testing::Test {
  protected:
    void SetUp() override { file = devctrl_test::makeSelectionFamily(mngr); }
    // The position of a column of the part table, found by its name.
    std::size_t column(const std::string& name) const {
        int at = util::indexOf(file->m_genericDevices.m_items, name);
        EXPECT_GE(at, 0) << name;
        return static_cast<std::size_t>(at);
    }

    TarnDeviceMngr mngr;
    TarnSDSFile* file = nullptr;
    StringList list{"stale"};
};

TEST_F(PartLists, FamilyListsValuesInFirstSeenOrderWithoutObsoleteParts) {
    file->getDevices(list, false, false);
    EXPECT_EQ(list, (StringList{"ZR12", "ZR4"}));
    file->getSpeeds("ZR4", "QF48", list, false, false);
    EXPECT_EQ(list, (StringList{"12"})) << "the -6 part is obsolete (a lone O reads as PO)";
}

TEST_F(PartLists, ManagerSortsNaturallyAndPackagesByPinCount) {
    mngr.getDevices("zr1a00", list, true, false);
    EXPECT_EQ(list, (StringList{"ZR4", "ZR9", "ZR12"}));
    mngr.getPackages("zr1a00", "ZR12", list, false, false);
    EXPECT_EQ(list, (StringList{"QF48", "BG100"}));
}

TEST_F(PartLists, AscOnlyAndObsoleteFiltersMustBothPass) {
    file->getPackages("ZR12", list, false, true);
    EXPECT_EQ(list, (StringList{"BG100"}));
    file->getDevices(list, false, true);
    EXPECT_EQ(list, (StringList{"ZR12"}));
}

TEST_F(PartLists, UnloadedPmLeavesTheListAloneLoadedFamilyEmptiesIt) {
    list = {"kept"};
    mngr.getAllPartsByPM("zr9a00", list, true, true);
    EXPECT_EQ(list, StringList{"kept"});
    mngr.getPackages("zr1a00", "ZR5", list, true, false);
    EXPECT_TRUE(list.empty());
}

TEST_F(PartLists, WithoutStatusColumnTheListIsLeftAsItWas) {
    file->m_genericDevices.m_items[column("Status")] = "State";
    file->invalidateIndexes();
    list = {"kept"};
    file->getDevices(list, true, false);
    EXPECT_EQ(list, StringList{"kept"});
}

TEST_F(PartLists, ShortRowThrowsOutOfRange) {
    file->m_genericDevices.m_datas["ZR12-6BG100C"] = {"ZR12", "6"};
    file->invalidateIndexes();
    EXPECT_THROW(file->getPackages("ZR12", list, true, false), std::out_of_range);
}
