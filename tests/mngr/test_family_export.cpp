// SPDX-License-Identifier: MIT
// A family's export: the selection tree goes only as deep as the part table
// has naming columns, lists are in natural order, and fields and custom
// items are told apart.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/family_export.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/sds/sds_file.h"

namespace {

using tarn::vyxpn::SelectionNode;
using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFile;

std::vector<std::string> namesOf(const std::vector<SelectionNode>& nodes) {
    std::vector<std::string> names;
    for (const SelectionNode& node : nodes)
        names.push_back(node.name);
    return names;
}

// A table without a Speed column: devices and packages, nothing below.
TarnSDSFile* familyWithoutSpeeds(TarnDeviceMngr& mngr) {
    auto* file = new TarnSDSFile("zr1a00", &mngr);
    file->m_genericDevices.m_items = {"Device", "Package", "Status", "LUT", "LUT"};
    auto& rows = file->m_genericDevices.m_datas;
    rows["ZR12-BG100"] = {"ZR12", "BG100", "P", "1200", "1200"};
    rows["ZR4-QF48"] = {"ZR4", "QF48", "P", "400", "400"};
    rows["ZR4-BG100"] = {"ZR4", "BG100", "O", "400", "400"};
    mngr.adoptFamilyFile(file);
    return file;
}

// Devices, packages and parts come in the orders of the list queries, with
// obsolete parts only when asked for.
TEST(FamilyExport, TreeStopsAtTheLastNamingColumnInTheListQueriesOrder) {
    TarnDeviceMngr mngr;
    const TarnSDSFile& file = *familyWithoutSpeeds(mngr);
    for (bool withObsolete : {false, true}) {
        const tarn::vyxpn::FamilyExport data = tarn::vyxpn::exportFamily(file, withObsolete, false);
        tarn::vyxpn::StringList parts, devices;
        mngr.getAllPartsByPM("zr1a00", parts, withObsolete, false);
        mngr.getDevices("zr1a00", devices, withObsolete, false);
        std::vector<std::string> exported;
        for (const auto& part : data.parts)
            exported.emplace_back(part.name);
        EXPECT_EQ(exported, parts) << withObsolete;
        EXPECT_EQ(exported.size(), withObsolete ? 3u : 2u);
        ASSERT_EQ(namesOf(data.devices), devices) << withObsolete;
        for (const SelectionNode& device : data.devices) {
            tarn::vyxpn::StringList packages;
            mngr.getPackages("zr1a00", device.name, packages, withObsolete, false);
            EXPECT_EQ(namesOf(device.children), packages) << device.name;
            for (const SelectionNode& package : device.children)
                EXPECT_TRUE(package.children.empty()) << package.name;
        }
    }
}

TEST(FamilyExport, NamingColumnsAreFieldsAndARepeatedColumnIsOneItem) {
    TarnDeviceMngr mngr;
    const tarn::vyxpn::FamilyExport data =
        tarn::vyxpn::exportFamily(*familyWithoutSpeeds(mngr), true, false);
    const auto obsolete = std::find_if(data.parts.begin(), data.parts.end(),
                                       [](const auto& part) { return part.name == "ZR4-BG100"; });
    ASSERT_NE(obsolete, data.parts.end());
    const tarn::vyxpn::ExportedPart& part = *obsolete;
    using Pairs = std::vector<std::pair<std::string_view, std::string_view>>;
    EXPECT_EQ(part.fields, (Pairs{{"Device", "ZR4"}, {"Package", "BG100"}}));
    EXPECT_EQ(part.items, (Pairs{{"Status", "O"}, {"LUT", "400"}}));
    EXPECT_TRUE(part.obsolete);
}

// The scope of one PM is that PM and its family, whichever way it is named;
// the whole catalogue's families are getAllFamilies'.
TEST(FamilyExport, ScopeOfOnePmOrTheWholeCatalogue) {
    TarnDeviceMngr mngr;
    familyWithoutSpeeds(mngr);
    auto* second = new TarnSDSFile("zr3c00", &mngr);
    second->m_genericDevices.m_items = {"Device", "Status"};
    second->m_genericDevices.m_datas["ZT2-X"] = {"ZT2", "O"};
    mngr.adoptFamilyFile(second);
    const std::string zr1 = TarnDeviceMngr::basePmToFamily("zr1a00");
    const std::string zr3 = TarnDeviceMngr::basePmToFamily("zr3c00");
    if (zr1.empty() || zr3.empty())
        GTEST_SKIP() << "the families' names come from the sample installation";
    const struct {
        const std::string* pm;
        bool withObsolete;
        std::vector<std::string> pms, families;
    } cases[] = {
        {&zr1, false, {"zr1a00"}, {zr1}},
        // Only obsolete parts: the family drops out unless they are asked for.
        {&zr3, false, {"zr3c00"}, {}},
        {&zr3, true, {"zr3c00"}, {zr3}},
        {nullptr, false, {"zr1a00", "zr3c00"}, {zr1}},
        {nullptr, true, {"zr1a00", "zr3c00"}, {zr1, zr3}},
    };
    for (const auto& c : cases) {
        const tarn::vyxpn::ExportScope scope =
            tarn::vyxpn::exportScope(mngr, c.pm, c.withObsolete, false);
        EXPECT_EQ(scope.pms, c.pms) << (c.pm ? *c.pm : "all") << c.withObsolete;
        EXPECT_EQ(scope.families, c.families) << (c.pm ? *c.pm : "all") << c.withObsolete;
    }
    const std::string unknown = "ZR9";
    EXPECT_THROW(tarn::vyxpn::exportScope(mngr, &unknown, true, false),
                 tarn::vyxpn::UnknownNameError);
}

TEST(FamilyExport, FieldKeysAreSnakeCase) {
    const struct {
        const char* column;
        const char* key;
    } cases[] = {{"Device", "device"}, {"ShortPackage", "short_package"}, {"Speed", "speed"}};
    for (const auto& c : cases)
        EXPECT_EQ(tarn::vyxpn::exportedFieldKey(c.column), c.key);
}

}  // namespace
