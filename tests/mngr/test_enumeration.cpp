#include <gtest/gtest.h>

#include "sds/selection_fixture.h"

using namespace tarn::vyxpn;
using devctrl_test::addPart;
using Strings = std::vector<std::string>;

namespace {

// Realistic names whose byte order differs from their natural order.
TarnSDSFile* makeNaturalFamily(TarnDeviceMngr& mngr) {
    auto* file = new TarnSDSFile("zr1a00", &mngr);
    file->m_genericDevices.m_items = {"Device", "Speed", "Package", "Condition", "Status"};
    const Strings devices{"ZR25", "ZR4", "ZR12", "ZR12A", "ZRB7", "ZRA9"};
    const Strings packages{"WLCSP", "FT256", "BG256", "BG100", "QF48", "M2BG64"};
    const Strings speeds{"12", "7", "6"};
    for (const auto& device : devices)
        for (const auto& package : packages)
            for (const auto& speed : speeds)
                for (const char* condition : {"IND", "COM"})
                    addPart(*file, device + "-" + speed + package + condition[0],
                            {device, speed, package, condition, "P"});
    mngr.adoptFamilyFile(file);
    return file;
}

}  // namespace

TEST(MngrEnumeration, ForwardingQueriesSortNaturally) {
    TarnDeviceMngr mngr;
    makeNaturalFamily(mngr);
    Strings out;
    mngr.getDevices("zr1a00", out, false, false);
    EXPECT_EQ(out, (Strings{"ZR4", "ZR12", "ZR12A", "ZR25", "ZRB7", "ZRA9"}));
    mngr.getPackages("zr1a00", "ZR4", out, false, false);
    // Pin count first, then letters; a name without digits goes by letters.
    EXPECT_EQ(out, (Strings{"QF48", "M2BG64", "BG100", "BG256", "FT256", "WLCSP"}));
    mngr.getSpeeds("zr1a00", "ZR4", "BG100", out, false, false);
    EXPECT_EQ(out, (Strings{"6", "7", "12"}));
    mngr.getOperations("zr1a00", "ZR4", "BG100", "7", out, false, false);
    EXPECT_EQ(out, (Strings{"COM", "IND"}));
    mngr.getAllPartsByPM("zr1a00", out, false, false);
    ASSERT_EQ(out.size(), 6u * 6u * 3u * 2u);
    // Numbers decide before letters: the smallest device, then speed, then
    // pin count lead.
    EXPECT_EQ(out.front(), "ZR4-6QF48C");
    EXPECT_EQ(out[1], "ZR4-6QF48I");
}

TEST(MngrEnumeration, UnloadedPmLeavesTheListAlone) {
    TarnDeviceMngr mngr;
    makeNaturalFamily(mngr);
    Strings out{"kept"};
    mngr.getDevices("zr9a00", out, true, true);
    mngr.getPackages("zr9a00", "ZR4", out, true, true);
    mngr.getSpeeds("zr9a00", "ZR4", "BG100", out, true, true);
    mngr.getOperations("zr9a00", "ZR4", "BG100", "6", out, true, true);
    mngr.getAllPartsByPM("zr9a00", out, true, true);
    EXPECT_EQ(out, Strings{"kept"});
    // A loaded family empties the list even when nothing matches.
    mngr.getPackages("zr1a00", "ZR5", out, true, false);
    EXPECT_TRUE(out.empty());
}
