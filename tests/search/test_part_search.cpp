// SPDX-License-Identifier: MIT
// Part search on the sample installation (answers worked out from its data
// files) and on a generated catalogue (against getAllPartsByPM filtered by
// hand), and the errors that stand for an empty answer.

#include <gtest/gtest.h>

#include <functional>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/mngr/part_search.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/string_utils.h"
#include "generator/catalogue_generator.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::TraceCapture;
using tarn::vyxpn::StringList;

namespace {

StringList namesOf(const std::vector<FoundPart>& found, const std::string& pm = "") {
    StringList names;
    for (const FoundPart& part : found) {
        if (!pm.empty()) {
            EXPECT_EQ(part.pm, pm) << part.name;
        }
        names.push_back(part.name);
    }
    return names;
}

PartQuery queryOf(const std::string& pm, StringList where, StringList patterns = {},
                  bool withObsolete = false, bool ascOnly = false) {
    PartQuery query;
    query.pm = pm;
    query.where = std::move(where);
    query.patterns = std::move(patterns);
    query.withObsolete = withObsolete;
    query.ascOnly = ascOnly;
    return query;
}

}  // namespace

// zr2b00 (ZR2): LUT per device (ZS1 1280, ZS3 3520, ZS6 6144), IO and Pin
// Count per package, Status and Shipping per part; ZS1-4S32C/I obsolete.
TEST(PartSearch, SampleFamilyByItemsFieldsAndPatterns) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    struct Case {
        PartQuery query;
        StringList expected;
    };
    const std::vector<Case> cases{
        {queryOf("zr2b00", {"LUT>=3520", "Pin Count=48"}),
         {"ZS3-4N48C", "ZS3-5N48C", "ZS3-5N48E", "ZS3-5N48I", "ZS3-6N48C"}},
        {queryOf("zr2b00", {"IO>49"}, {"zs6-*"}),
         {"ZS6-5B121C", "ZS6-5B121I", "ZS6-6B121C", "ZS6-6B121CES"}},
        // The part's condition word, not the package tables' letters.
        {queryOf("zr2b00", {"Condition=auto"}), {"ZS3-5N48E"}},
        {queryOf("zr1a00", {"Condition=AUTO", "Device=ZR25", "Speed=6"}, {"*B100*"}),
         {"ZR25-6B100E", "ZR25-6B100EES", "ZR25-6B100ET"}},
        // Obsolete parts only when asked; ASC capacity from ASCMaxNum.
        {queryOf("zr2b00", {"Status=o", "Shipping=TRAY"}, {}, true), {"ZS1-4S32C", "ZS1-4S32I"}},
        {queryOf("zr2b00", {"LUT<4000", "Speed=4"}, {}, false, true), {"ZS3-4N48C"}},
        {queryOf("zr2b00", {"Family=zr2", "PM=zr2b00", "Status=E"}),
         {"ZS3-5Q64CES", "ZS6-6B121CES"}},
        {queryOf("zr2b00", {}, {"ZS1-5*", "*B121C"}),
         // A later number outranks an earlier letter: S32 before N48.
         {"ZS1-5S32C", "ZS1-5S32I", "ZS1-5N48C", "ZS1-5N48I", "ZS6-5B121C", "ZS6-6B121C"}},
        {queryOf("zr3c00", {"DefSynthesis=synplify", "Speed=4"}),
         {"ZT5-4N48C", "ZT5-4N48E", "ZT5-4N48I"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(namesOf(searchParts(mngr, c.query), c.query.pm), c.expected)
            << c.query.pm << " " << (c.query.where.empty() ? "" : c.query.where.front());

    // Across families: only zr1a00 defines Vendor Code; ZR2 is one family.
    const std::vector<FoundPart> vendor =
        searchParts(mngr, queryOf("", {"Vendor Code=0x4a12", "Speed>=11"}, {"*F256C"}));
    EXPECT_EQ(namesOf(vendor, "zr1a00"), (StringList{"ZR12-11F256C", "ZR12-12F256C"}));
    EXPECT_EQ(searchParts(mngr, queryOf("", {"Family=ZR2"})).size(), 20u);
    // No condition, no pattern: exactly what the list query gives.
    StringList all;
    mngr.getAllPartsByPM("zr1a00", all, true, false);
    EXPECT_EQ(namesOf(searchParts(mngr, queryOf("zr1a00", {}, {}, true))), all);
}

TEST(PartSearch, MistakesAreErrorsWithSuggestionsNeverEmptyResults) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    struct Case {
        PartQuery query;
        const char* kind;
        const char* message;
        StringList suggestions;
    };
    const std::vector<Case> cases{
        {queryOf("zr2b00", {"Pin count=48"}),
         "item",
         "unknown item 'Pin count' in zr2b00; did you mean Pin Count?",
         {"Pin Count"}},
        {queryOf("zr2b00", {"LUT>1", "LUTS>1"}),
         "item",
         "unknown item 'LUTS' in zr2b00; did you mean LUT?",
         {"LUT"}},
        // Defined in another family only: unknown here, known across all.
        {queryOf("zr2b00", {"Vendor Code=1"}), "item", "unknown item 'Vendor Code' in zr2b00", {}},
        {queryOf("", {"Vendor Kode=1"}),
         "item",
         "unknown item 'Vendor Kode'; did you mean Vendor Code?",
         {"Vendor Code"}},
        {queryOf("", {"pm=zr1a00"}), "item", "unknown item 'pm'; did you mean PM?", {"PM"}},
        // Even when the flags leave no part to look at.
        {queryOf("zr2b00", {"Nothing=1"}, {"NO-SUCH-*"}, false, true),
         "item",
         "unknown item 'Nothing' in zr2b00",
         {}},
        {queryOf("zr2b01", {}), "PM", "unknown PM 'zr2b01'; did you mean zr2b00?", {"zr2b00"}},
        {queryOf("zr4x00", {}), "PM", "unknown PM 'zr4x00'", {}},  // installed, not loaded
    };
    for (const Case& c : cases) {
        try {
            searchParts(mngr, c.query);
            ADD_FAILURE() << "no error: " << c.message;
        } catch (const UnknownNameError& e) {
            EXPECT_EQ(e.what(), std::string(c.message));
            EXPECT_EQ(e.kind(), c.kind);
            EXPECT_EQ(e.suggestions(), c.suggestions) << c.message;
        }
    }
    EXPECT_THROW(searchParts(mngr, queryOf("zr2b00", {"LUT>>1"})), PartFilterSyntaxError);
    const StringList names = filterNames({mngr.getFamilyFile("zr2b00")});
    EXPECT_EQ(StringList(names.begin(), names.begin() + 4),
              (StringList{"ASCExtTypes", "ASCMaxNum", "ASCStockNum", "Condition"}));
    for (const char* name : {"Pin Count", "Shipping", "PM", "Family", "Suffix"})
        EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
}

// Every family of a generated catalogue, and all at once, under each filter
// setting: the search equals the list query's parts kept by a plain test.
TEST(PartSearch, GeneratedCatalogueAgainstTheListQuery) {
    devctrl_test::TempDir root;
    gen::GeneratorOptions options;
    options.parts = 3000;
    options.seed = 3;
    gen::generateCatalogue(root.path() + "/data", options);
    DataDirScope scope(root.path() + "/data");
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();

    using Keep = std::function<bool(const TarnSDSFile&, const std::string&)>;
    auto item = [](const TarnSDSFile& file, const std::string& part, const char* name) {
        return file.getItemValue(name, part, "");
    };
    auto field = [](const TarnSDSFile& file, const std::string& part, int which) {
        std::string f[4];
        file.getNameByPart(part, f[0], f[1], f[2], f[3]);
        return f[which];
    };
    const std::vector<std::pair<StringList, Keep>> filters{
        {{"LUT>=20000", "Status=p"},
         [&](const TarnSDSFile& f, const std::string& p) {
             const std::string lut = item(f, p, "LUT");
             return !lut.empty() && std::stol(lut) >= 20000 &&
                    util::toUpper(item(f, p, "Status")) == "P";
         }},
        {{"Package~bg*", "Condition!=COM", "Pin Count=256"},
         [&](const TarnSDSFile& f, const std::string& p) {
             return field(f, p, 1).rfind("BG", 0) == 0 && field(f, p, 3) != "COM" &&
                    item(f, p, "Pin Count") == "256";
         }},
    };
    std::size_t selected = 0;
    for (int flags = 0; flags < 4; ++flags) {
        for (const auto& [where, keep] : filters) {
            std::vector<FoundPart> expectedAll;
            for (const auto& [pm, file] : mngr.getFamilyFiles()) {
                StringList parts;
                mngr.getAllPartsByPM(pm, parts, flags & 1, flags & 2);
                StringList expected;
                for (const std::string& part : parts)
                    if (keep(*file, part)) {
                        expected.push_back(part);
                        expectedAll.push_back({pm, part});
                    }
                const auto found = searchParts(mngr, queryOf(pm, where, {}, flags & 1, flags & 2));
                EXPECT_EQ(namesOf(found, pm), expected) << pm << " " << where.front();
                selected += found.size();
            }
            const auto found = searchParts(mngr, queryOf("", where, {}, flags & 1, flags & 2));
            ASSERT_EQ(found.size(), expectedAll.size()) << where.front();
            for (std::size_t i = 0; i < found.size(); ++i)
                EXPECT_TRUE(found[i].pm == expectedAll[i].pm &&
                            found[i].name == expectedAll[i].name)
                    << i << " " << found[i].pm << " " << found[i].name;
        }
    }
    EXPECT_GT(selected, 100u) << "the filters must select something to compare";
}

// What a listing shows in a column is what a condition on that name compares:
// the part's fields, else its item from the part, package, device or family.
TEST(PartSearch, ColumnValuesAreWhatConditionsCompare) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TraceCapture quiet;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    const TarnSDSFile& zr2 = *mngr.getFamilyFile("zr2b00");
    const std::pair<const char*, const char*> expected[]{
        {"Status", "P"},       {"Shipping", "tray"}, {"Pin Count", "48"},
        {"IO", "35"},          {"LUT", "3520"},      {"DefSynthesis", "synplify"},
        {"Condition", "AUTO"}, {"Package", "QN48"},  {"Speed", "5"},
        {"Device", "ZS3"},     {"PM", "zr2b00"},     {"Family", "ZR2"},
        {"Vendor Code", ""},  // another family's item: no value here
    };
    for (const auto& [name, value] : expected)
        EXPECT_EQ(partValue(zr2, "ZS3-5N48E", name), value) << name;

    // Every name on every part: a condition "name=value" holds.
    StringList parts;
    zr2.getAllParts(parts, true, false);
    for (const std::string& name : filterNames({&zr2}))
        for (const std::string& part : parts) {
            const std::string value = partValue(zr2, part, name);
            if (value.find_first_of("=!<>~*?[") != std::string::npos || value != util::trim(value))
                continue;  // not writable as a plain condition value
            EXPECT_TRUE(PartFilter({name + "=" + value}).accepts(zr2, part)) << name << " " << part;
        }

    EXPECT_NO_THROW(requireKnownItemNames({&zr2}, {"LUT", "Pin Count", "Family"}));
    try {
        requireKnownItemNames({&zr2}, {"LUT", "Pin count", "LUTS"}, "zr2b00");
        ADD_FAILURE() << "no error";
    } catch (const UnknownNameError& e) {
        EXPECT_STREQ(e.what(), "unknown item 'Pin count' in zr2b00; did you mean Pin Count?");
    }
}
