#include <gtest/gtest.h>

#include "sds/selection_fixture.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using Strings = std::vector<std::string>;

TEST(MngrEnumeration, ForwardingQueriesSortNaturallyAndSkipUnloadedPms) {
    // Realistic names whose byte order differs from their natural order.
    TarnDeviceMngr mngr;
    auto* file = new TarnSDSFile("zr1a00", &mngr);
    file->m_genericDevices.m_items = {"Device", "Speed", "Package", "Condition", "Status"};
    for (const char* device : {"ZR25", "ZR4", "ZR12", "ZR12A", "ZRB7", "ZRA9"})
        for (const char* package : {"WLCSP", "FT256", "BG256", "BG100", "QF48", "M2BG64"})
            for (const char* speed : {"12", "7", "6"})
                for (const char* condition : {"IND", "COM"})
                    devctrl_test::addPart(
                        *file, std::string(device) + "-" + speed + package + condition[0],
                        {device, speed, package, condition, "P"});
    mngr.adoptFamilyFile(file);

    Strings out;
    mngr.getDevices("zr1a00", out, false, false);
    EXPECT_EQ(out, (Strings{"ZR4", "ZR12", "ZR12A", "ZR25", "ZRB7", "ZRA9"}));
    mngr.getPackages("zr1a00", "ZR4", out, false, false);
    EXPECT_EQ(out, (Strings{"QF48", "M2BG64", "BG100", "BG256", "FT256", "WLCSP"}));
    mngr.getSpeeds("zr1a00", "ZR4", "BG100", out, false, false);
    EXPECT_EQ(out, (Strings{"6", "7", "12"}));
    mngr.getAllPartsByPM("zr1a00", out, false, false);
    ASSERT_EQ(out.size(), 6u * 6u * 3u * 2u);
    EXPECT_EQ(out[0] + " " + out[1], "ZR4-6QF48C ZR4-6QF48I");

    out = {"kept"};
    mngr.getAllPartsByPM("zr9a00", out, true, true);
    EXPECT_EQ(out, Strings{"kept"}) << "an unloaded PM leaves the list alone";
    mngr.getPackages("zr1a00", "ZR5", out, true, false);
    EXPECT_TRUE(out.empty()) << "a loaded family empties it even when nothing matches";
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
    // not loaded with the others.
    EXPECT_EQ(mngr.getFamilyFiles().size(), 2u);
    ASSERT_TRUE(mngr.loadDeviceInfo("en3a00", true));

    Strings out{"ZR5X"};
    mngr.getAllFamilies(out, false, false);
    EXPECT_EQ(out, (Strings{"ZR4X", "ZR5X", "ZR12X"}));
    out = {"ZR5X"};
    mngr.getAllFamilies(out, true, false);
    EXPECT_EQ(out, (Strings{"ZR4X", "ZR4X", "ZR5X", "ZR12X"})) << "duplicates stay";
    out.clear();
    mngr.getAllFamilies(out, true, true);
    EXPECT_TRUE(out.empty()) << "no part has ASC capacity";
    // Base lists read family.key: speed grades in natural order, conditions
    // per grade; generation uses the same conditions.
    TarnDeviceMngr::baseGetSpeeds("en1a00", "ZR12", "BG100", out);
    EXPECT_EQ(out, (Strings{"6", "7", "8", "12"}));
    TarnDeviceMngr::baseGetOperations("en1a00", "ZR12", "BG100", "6", out);
    EXPECT_EQ(out, (Strings{"Commercial", "Industrial"}));
    TarnDeviceMngr::baseGetOperations("en1a00", "ZR12", "BG100", "8", out);
    EXPECT_EQ(out, Strings{"Industrial"});
    mngr.getOperations("en1a00", "ZR12", "BG100", "8", out, false, false);
    EXPECT_EQ(out, (Strings{"COM", "IND"}));
}
