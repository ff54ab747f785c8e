// SPDX-License-Identifier: MIT
// Every item of a part with its origin: exact for a family built in memory,
// and in agreement with getItemValue for every part of the sample
// installation and of a generated catalogue.

#include <gtest/gtest.h>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/part_items.h"
#include "devctrl/sds/sds_file.h"
#include "generator/catalogue_generator.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TraceCapture;

namespace {

std::string describe(const std::vector<PartItem>& items) {
    std::string text;
    for (const PartItem& item : items)
        text += item.name + "=" + item.value + " (" + itemOriginName(item.origin) + ")\n";
    return text;
}

// For every part of every loaded family: each listed item has the value
// getItemValue gives, every name getItemValue answers for is listed, and the
// origins come in lookup order.
std::size_t expectAgreement(TarnDeviceMngr& mngr) {
    const std::string none = "\x01none";
    std::size_t checked = 0;
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        std::vector<std::string> names{"NoSuchItem"};
        for (const TarnSDSFileSection* table : itemTables(*file))
            names.insert(names.end(), table->m_items.begin(), table->m_items.end());
        for (const auto& entry : file->m_genericDevices.m_datas) {
            const std::string& part = entry.first;
            const std::vector<PartItem> items = getPartItems(*file, part);
            for (std::size_t i = 0; i < items.size(); ++i) {
                EXPECT_EQ(items[i].value, file->getItemValue(items[i].name, part, none))
                    << pm << " " << part << " " << items[i].name;
                if (i > 0) {
                    EXPECT_LE(items[i - 1].origin, items[i].origin) << part;
                }
            }
            for (const std::string& name : names) {
                const bool answered = file->getItemValue(name, part, none) != none;
                const bool listed =
                    std::any_of(items.begin(), items.end(),
                                [&](const PartItem& item) { return item.name == name; });
                EXPECT_EQ(listed, answered) << pm << " " << part << " " << name;
            }
            // The manager's form asks the family that owns the name.
            std::string owner, d, p, s, c;
            if (mngr.getNameByPart(part, owner, d, p, s, c) && owner == pm) {
                EXPECT_EQ(describe(getPartItems(mngr, part)), describe(items)) << part;
            }
            ++checked;
        }
    }
    return checked;
}

}  // namespace

TEST(PartItems, OriginsAndOrderOfOneFamily) {
    TarnSDSFile file{"zr1a00", nullptr};
    file.m_genericDevices.m_items = {"Device",    "Speed",  "Package", "ShortPackage",
                                     "Condition", "Suffix", "Flow",    "Generated"};
    file.m_genericDevices.m_datas["ZR4-6QF48C"] = {"ZR4", "6", "QF48",       "QF48C",
                                                   "COM", "",  "from-table", "gen"};
    file.m_pmSection.m_items = {"Vendor", "Flow"};
    file.m_pmSection.m_datas["zr1a00"] = {"acme", "pm-flow"};
    file.m_deviceSection.m_items = {"Pins", "Flow", "Grade"};
    file.m_deviceSection.m_datas["ZR4"] = {"48", "device-flow", "B"};
    file.m_packageSection.m_items = {"IO", "Pins"};
    file.m_packageSection.m_datas["ZR4_QF48"] = {"39"};  // short: no Pins cell
    file.m_partSection.m_items = {"Override", "Blank", "Grade"};
    file.m_partSection.m_datas["ZR4-6QF48C"] = {"part-value", ""};  // no Grade cell

    // Blank is the part's own "nothing" and hides nothing; Pins belongs to
    // the package table, whose row has no cell, and is not asked elsewhere;
    // Grade falls through the part row to the device table.
    EXPECT_EQ(describe(getPartItems(file, "ZR4-6QF48C")),
              "Override=part-value (part)\n"
              "IO=39 (package)\n"
              "Flow=device-flow (device)\n"
              "Grade=B (device)\n"
              "Vendor=acme (family)\n"
              "Device=ZR4 (part table)\n"
              "Speed=6 (part table)\n"
              "Package=QF48 (part table)\n"
              "ShortPackage=QF48C (part table)\n"
              "Condition=COM (part table)\n"
              "Generated=gen (part table)\n");
    EXPECT_EQ(describe(getPartItems(file, "ZR4-7QF48C")), "") << "not a part of the family";
}

TEST(PartItems, AgreeWithGetItemValueOnTheSampleInstallation) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    EXPECT_GT(expectAgreement(mngr), 3000u);

    EXPECT_TRUE(getPartItems(mngr, "ZR99-6F256C").empty());
}

TEST(PartItems, AgreeWithGetItemValueOnAGeneratedCatalogue) {
    devctrl_test::TempDir root;
    gen::GeneratorOptions options;
    options.parts = 2000;
    options.seed = 5;
    const gen::GeneratedCatalogue catalogue = gen::generateCatalogue(root.path() + "/d", options);
    DataDirScope scope(root.path() + "/d");
    TraceCapture quiet;
    EXPECT_EQ(expectAgreement(*TarnDeviceMngr::getInstance()), catalogue.parts);
}
