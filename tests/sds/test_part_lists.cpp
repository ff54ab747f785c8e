#include <gtest/gtest.h>

#include <stdexcept>

#include "devctrl/util/string_list.h"
#include "sds/selection_fixture.h"

using namespace tarn::vyxpn;
using tarn::vyxpn::StringList;

TEST(PartLists, FiltersFirstSeenOrderAndManagerSorting) {
    TarnDeviceMngr mngr;
    TarnSDSFile& file = *devctrl_test::makeSelectionFamily(mngr);
    StringList list{"stale"};
    // ZR9's only part is obsolete ("PO"). The family lists values first seen
    // over byte-ordered part names; the manager sorts them naturally.
    file.getDevices(list, false, false);
    EXPECT_EQ(list, (StringList{"ZR12", "ZR4"}));
    mngr.getDevices("zr1a00", list, true, false);
    EXPECT_EQ(list, (StringList{"ZR4", "ZR9", "ZR12"}));
    file.getSpeeds("ZR4", "QF48", list, false, false);
    EXPECT_EQ(list, (StringList{"12"})) << "the -6 part is obsolete (a lone O reads as PO)";
    mngr.getPackages("zr1a00", "ZR12", list, false, false);
    EXPECT_EQ(list, (StringList{"QF48", "BG100"}));

    // ASC-only asks the manager per part: QF48 parts carry ASCMaxNum 0.
    file.getPackages("ZR12", list, false, true);
    EXPECT_EQ(list, (StringList{"BG100"}));
    file.getDevices(list, false, true);
    EXPECT_EQ(list, (StringList{"ZR12"})) << "both filters must pass";

    list = {"kept"};
    mngr.getAllPartsByPM("zr9a00", list, true, true);
    EXPECT_EQ(list, StringList{"kept"}) << "an unloaded PM leaves the list alone";
    mngr.getPackages("zr1a00", "ZR5", list, true, false);
    EXPECT_TRUE(list.empty()) << "a loaded family empties it even when nothing matches";

    // Without a Status column the list is left as it was; a short row throws.
    file.m_genericDevices.m_items[6] = "State";
    file.invalidateIndexes();
    list = {"kept"};
    file.getDevices(list, true, false);
    EXPECT_EQ(list, StringList{"kept"});
    file.m_genericDevices.m_items[6] = "Status";
    file.m_genericDevices.m_datas["ZR12-6BG100C"] = {"ZR12", "6"};
    file.invalidateIndexes();
    EXPECT_THROW(file.getPackages("ZR12", list, true, false), std::out_of_range);
}
