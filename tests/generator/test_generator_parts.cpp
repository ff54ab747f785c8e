#include <gtest/gtest.h>

#include <algorithm>

#include "bench/generator/catalogue_layout.h"
#include "bench/generator/keyed_file_writer.h"
#include "bench/generator/part_names.h"
#include "platform/pm_devkey.h"
#include "support/test_env.h"

using namespace tarn::vyxpn::gen;
using Strings = std::vector<std::string>;

namespace {

// QA4 in QN48 (alias N48 when PKGIndex is 0) and in BG256 and its twin
// BGN256, which share the short code B256; QA9 in QN48 only.
FamilyPlan smallPlan(FamilyKind kind) {
    FamilyPlan plan;
    plan.kind = kind;
    plan.pm = "zq0a00";
    plan.packageAliases = {{"QN48", {"N48"}}, {"BG256", {"B256"}}, {"BGN256", {"B256"}}};
    PackagePlan qn48{"QN48", "P", 0, "No|ES", "IA", "0|0|0", "1|0|0", 48, {"5/I", "6"}};
    PackagePlan bg256{"BG256", "P", 0, "No", "C", "0|0|0", "1|0|0", 256, {"6", "7/C"}};
    PackagePlan twin = bg256;
    twin.name = "BGN256";
    twin.grades = {"7", "8"};
    PackagePlan fullName = qn48;
    fullName.aliasIndex = 1;  // past the only alias: the package's own name
    plan.devices = {DevicePlan{"QA4", 0, "synplify", 0, 0, 1000, {qn48, bg256, twin}},
                    DevicePlan{"QA9", 2, "Precision", 1, 0, 2000, {fullName}}};
    return plan;
}

}  // namespace

TEST(GeneratorPartNames, NamesFollowTheLibraryRules) {
    EXPECT_EQ(composePartName("qa4", "6", "n48", 'A', "es"), "QA4-6N48EES");
    EXPECT_EQ(composePartName("QA4", "6", "N48", 'I', ""), "QA4-6N48I");
    EXPECT_EQ(suffixesOf("No|ES|T"), (Strings{"", "ES", "T"}));
    EXPECT_EQ(suffixesOf("no"), (Strings{""}));
    EXPECT_EQ(gradeName("7/C"), "7");

    // Conditions follow the Condition column, not the grade's /I or /C;
    // BG256 and BGN256 both give QA4-7B256C, which is one part.
    const FamilyPlan plan = smallPlan(FamilyKind::Generated);
    EXPECT_EQ(combinationNames(plan).size(), 8u + 2u + 2u + 8u);
    EXPECT_EQ(builtPartNames(plan),
              (Strings{"QA4-5N48E", "QA4-5N48EES", "QA4-5N48I", "QA4-5N48IES", "QA4-6B256C",
                       "QA4-6N48E", "QA4-6N48EES", "QA4-6N48I", "QA4-6N48IES", "QA4-7B256C",
                       "QA4-8B256C", "QA9-5QN48E", "QA9-5QN48EES", "QA9-5QN48I", "QA9-5QN48IES",
                       "QA9-6QN48E", "QA9-6QN48EES", "QA9-6QN48I", "QA9-6QN48IES"}));
}

TEST(GeneratorPartNames, ExceptionsListingAndOrderedRecords) {
    FamilyPlan plan = smallPlan(FamilyKind::Generated);
    plan.deviceExceptions = {"QA9"};
    plan.packageExceptions = {{"QA4", "BG256"}};
    plan.partExceptions = {"QA4-5N48I", "QA4-99ZZ9C"};
    // BGN256 still gives QA4-7B256C although BG256 is excepted.
    EXPECT_EQ(builtPartNames(plan),
              (Strings{"QA4-5N48E", "QA4-5N48EES", "QA4-5N48IES", "QA4-6N48E", "QA4-6N48EES",
                       "QA4-6N48I", "QA4-6N48IES", "QA4-7B256C", "QA4-8B256C"}));

    // Listed: exceptions ignored, names no combination gives are not built.
    plan.kind = FamilyKind::Listed;
    plan.listedParts = {{"QA9-6QN48I", {"P"}}, {"QA4-7B256C", {"O"}}, {"QA4-99ZZ9C", {"P"}}};
    EXPECT_EQ(builtPartNames(plan), (Strings{"QA4-7B256C", "QA9-6QN48I"}));

    // Ordered: one part per record, a repeated name once; switched off: none.
    plan.kind = FamilyKind::Ordered;
    plan.orderedParts = {{"QB2-1N48C", "QB2", "QN48", "1", "C", "", "P", "0", "tray"},
                         {"QA4-6N48I", "QA4", "QN48", "6", "I", "", "P", "0", "reel"},
                         {"QB2-1N48C", "QB2", "QN48", "1", "C", "", "O", "0", "tray"}};
    EXPECT_EQ(builtPartNames(plan), (Strings{"QA4-6N48I", "QB2-1N48C"}));
    plan.kind = FamilyKind::Disabled;
    EXPECT_TRUE(builtPartNames(plan).empty());
}

TEST(GeneratorKeyedWriter, RecordsReadBackFieldForField) {
    devctrl_test::TempDir dir;
    const std::string path = dir.file("device.acd");
    KeyedFileWriter out(path);
    out.comment("a comment");
    out.value("PM_ENABLE", "true");
    out.list("DEVICES", {"QA4", "QA9"});
    out.beginRecords("PART_DATAS");
    out.record({"QA4-6N48I", "QA4", "QN48", "6", "I", "", "P"});
    out.record({"QA9-5N48C", "QA9", "QN48", "5", "C", "ES", "E"});
    out.endRecords();
    out.close();

    PM_DEVKEY keys(path.c_str());
    EXPECT_STREQ(keys.getkeyeddata("PM_ENABLE"), "true");
    EXPECT_STREQ(keys.getkeyeddata("DEVICES"), "QA4, QA9");
    std::vector<Strings> records;
    for (PM_DEVKEY_KEYITER it(&keys, "PART_DATAS", ':', ','); it.record(); it.setupNextIAndJ()) {
        records.emplace_back();
        for (; it.field(); it.advanceToNextJ())
            records.back().emplace_back(it.field());
    }
    EXPECT_EQ(records, (std::vector<Strings>{{"QA4-6N48I", "QA4", "QN48", "6", "I", "", "P"},
                                             {"QA9-5N48C", "QA9", "QN48", "5", "C", "ES", "E"}}));

    EXPECT_THROW(KeyedFileWriter(dir.file("missing/device.acd")), std::runtime_error);
}

TEST(GeneratorLayout, FamiliesKindsAndShares) {
    for (std::size_t parts : {10000u, 100000u, 1000000u}) {
        const auto slots = layoutCatalogue(parts, RandomSource(7));
        ASSERT_EQ(slots.size(), std::max<std::size_t>(5, parts / 60000 + 4)) << parts;
        auto count = [&](FamilyKind kind) {
            return std::count_if(slots.begin(), slots.end(),
                                 [&](const FamilySlot& s) { return s.kind == kind; });
        };
        EXPECT_EQ(count(FamilyKind::Disabled), 1);
        EXPECT_EQ(count(FamilyKind::Listed), 1);
        EXPECT_GE(count(FamilyKind::Ordered), 1);

        std::size_t total = 0, ordered = 0;
        const FamilySlot* largest = &slots.front();
        for (const FamilySlot& slot : slots) {
            EXPECT_EQ(slot.pm.substr(0, 2), "zq");
            EXPECT_EQ(slot.familyNames.front(), "ZQ" + slot.pm.substr(2, slot.pm.size() - 5));
            if (slot.kind == FamilyKind::Disabled)
                continue;
            total += slot.parts;
            if (slot.kind == FamilyKind::Ordered)
                ordered += slot.parts;
            if (slot.parts > largest->parts)
                largest = &slot;
        }
        EXPECT_EQ(largest->kind, FamilyKind::Generated) << parts;
        EXPECT_NEAR(static_cast<double>(total), static_cast<double>(parts), parts * 0.02);
        EXPECT_NEAR(static_cast<double>(ordered) / total, 0.15, 0.03) << parts;
        if (parts >= 1000000) {
            EXPECT_NEAR(static_cast<double>(largest->parts) / total, 0.10, 0.01);
        }
    }
}
