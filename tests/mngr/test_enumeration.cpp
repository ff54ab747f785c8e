#include <gtest/gtest.h>

#include "sds/selection_fixture.h"
#include "support/test_env.h"

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

TEST(MngrEnumeration, ForwardingQueriesSortNaturallyAndSkipUnloadedPms) {
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

    // An unloaded PM leaves the list alone.
    out = {"kept"};
    mngr.getDevices("zr9a00", out, true, true);
    mngr.getSpeeds("zr9a00", "ZR4", "BG100", out, true, true);
    mngr.getAllPartsByPM("zr9a00", out, true, true);
    EXPECT_EQ(out, Strings{"kept"});
    // A loaded family empties the list even when nothing matches.
    mngr.getPackages("zr1a00", "ZR5", out, true, false);
    EXPECT_TRUE(out.empty());
}

namespace {

// Base lists straight from family.key, with per-grade conditions.
void writeBaseFamily(const devctrl_test::TempDir& dir, const std::string& pm,
                     const std::string& family, const std::string& status) {
    dir.write(pm + "/family.key", "FAMILY = " + family +
                                      "\nDEVICES = ZR12, ZR4\n"
                                      "PACKAGES = ZR12, BG100, QF48 : ZR4, QF48\n"
                                      "SPEEDS = ZR12, BG100, 12, 6/CI, 7/C, 8/I : ZR4, QF48, 6\n");
    dir.write(pm + "/device.acd",
              "PM_ENABLE = true\nPKG_ALIAS = BG100, B100\n"
              "DEVICE_ITEMS = Status\nDEVICE_DATAS = ZR12, " +
                  status + " : ZR4, " + status + "\n");
}

}  // namespace

TEST(MngrEnumeration, BaseQueriesReadThePartModelLists) {
    devctrl_test::TempDir dir;
    writeBaseFamily(dir, "zr1a00", "ZR1", "P");
    devctrl_test::DataDirScope scope(dir.path());
    Strings out{"stale"};
    TarnDeviceMngr::baseGetDevices("zr1a00", out);
    EXPECT_EQ(out, (Strings{"ZR12", "ZR4"})) << "in the library's order";
    TarnDeviceMngr::baseGetPackages("zr1a00", "ZR12", out);
    EXPECT_EQ(out, (Strings{"BG100", "QF48"}));
    TarnDeviceMngr::baseGetSpeeds("zr1a00", "ZR12", "BG100", out);
    EXPECT_EQ(out, (Strings{"6", "7", "8", "12"})) << "speed grades in natural order";
    TarnDeviceMngr::baseGetOperations("zr1a00", "ZR12", "BG100", "6", out);
    EXPECT_EQ(out, (Strings{"Commercial", "Industrial"}));
    TarnDeviceMngr::baseGetOperations("zr1a00", "ZR12", "BG100", "8", out);
    EXPECT_EQ(out, Strings{"Industrial"});
    TarnDeviceMngr::baseGetOperations("zr1a00", "ZR12", "BG100", "9", out);
    EXPECT_TRUE(out.empty()) << "no such speed record";
    TarnDeviceMngr::baseGetDevices("zr9a00", out);
    EXPECT_TRUE(out.empty());
    TarnDeviceMngr::baseGetPackages("zr1a00", "ZR5", out);
    EXPECT_TRUE(out.empty());
}

// PM codes of its own: the family/PM name caches live for the whole process,
// so reusing the sample data's codes would leak answers into other tests.
TEST(MngrEnumeration, FamiliesWithPassingPartsAppendedAndSorted) {
    devctrl_test::TempDir dir;
    writeBaseFamily(dir, "en1a00", "ZR12X", "P");
    writeBaseFamily(dir, "en2a00", "ZR4X", "O");  // every part obsolete
    writeBaseFamily(dir, "en3a00", "ZR4X", "P");  // the same family name again
    devctrl_test::DataDirScope scope(dir.path());
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    // A family name selects its first PM only, so the second PM of ZR4X is
    // loaded by hand.
    ASSERT_TRUE(mngr.loadDeviceInfo("en3a00", true));
    ASSERT_EQ(mngr.getFamilyFiles().size(), 3u);

    Strings out{"ZR5X"};
    mngr.getAllFamilies(out, false, false);
    EXPECT_EQ(out, (Strings{"ZR4X", "ZR5X", "ZR12X"}));
    out = {"ZR5X"};
    mngr.getAllFamilies(out, true, false);
    EXPECT_EQ(out, (Strings{"ZR4X", "ZR4X", "ZR5X", "ZR12X"})) << "duplicates stay";
    out.clear();
    mngr.getAllFamilies(out, true, true);
    EXPECT_TRUE(out.empty()) << "no part has ASC capacity";

    // The generated lists go through the same natural ordering.
    mngr.getSpeeds("en1a00", "ZR12", "BG100", out, false, false);
    EXPECT_EQ(out, (Strings{"6", "7", "8", "12"}));
    mngr.getOperations("en1a00", "ZR12", "BG100", "8", out, false, false);
    EXPECT_EQ(out, (Strings{"COM", "IND"})) << "generation uses the family's own conditions";
}
