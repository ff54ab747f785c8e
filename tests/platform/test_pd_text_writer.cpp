#include <gtest/gtest.h>

#include <string>

#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"
#include "tests/platform/pd_test_support.h"

using devctrl_test::describePartData;

namespace {

TEST(PdTextWriter, WritesWhatTheReaderReadsBack) {
    PD_DATA data;
    ASSERT_TRUE(
        data.LoadTxtString("junk before the header\n"
                           "[[ Device Info ]]\n"
                           "Vendor=Tarn, Inc.\n"
                           "Empty =\n"
                           "FORMAT = LUT,,FF\n"
                           "P1 = 1,,3,\n"
                           " = ,\n"
                           "P2 =\n"
                           "[[Other\n"
                           "Format =\n"));
    std::string text;
    ASSERT_TRUE(PD_FormatText(data, text));
    EXPECT_EQ(text,
              "[[Device Info]]\n"
              "Vendor = Tarn, Inc.\n"
              "Empty =\n"
              "Format = LUT, , FF\n"
              "P1 = 1, , 3, \n"
              "= , \n"
              "P2 =\n"
              "\n"
              "[[Other]]\n"
              "Format =\n");
    PD_DATA again;
    ASSERT_TRUE(again.LoadTxtString(text));
    EXPECT_EQ(describePartData(again), describePartData(data));
    std::string second;
    ASSERT_TRUE(PD_FormatText(again, second));
    EXPECT_EQ(second, text);
}

// A key section, then a "Format" table named `table` with a key column,
// `column`, and `row` when it is not empty.
void keySectionThenTable(PD_DATA& d, const char* table, const char* column,
                         std::vector<const char*> row = {}) {
    d.AddKeySection("S");
    auto* t = d.AddTable(table);
    t->addColumn(d.pool().intern("Key"));
    t->addColumn(d.pool().intern(column));
    if (!row.empty()) {
        std::vector<std::uint32_t> cells;
        for (const char* cell : row)
            cells.push_back(d.pool().intern(cell));
        t->addRow(cells);
    }
}

void entry(PD_DATA& d, const char* key, const char* value) {
    d.AddKeySection("S")->addEntry(d.pool().intern(key), d.pool().intern(value));
}

TEST(PdTextWriter, RefusesWhatTheTextFormCannotSay) {
    using Build = void (*)(PD_DATA&);
    // clang-format off
    const std::pair<const char*, Build> cases[] = {
        {"table first", [](PD_DATA& d) { d.AddTable("Format"); }},
        {"table not named Format", [](PD_DATA& d) { keySectionThenTable(d, "Other", "A"); }},
        {"comma in a column", [](PD_DATA& d) { keySectionThenTable(d, "Format", "A,B"); }},
        {"format row", [](PD_DATA& d) { keySectionThenTable(d, "Format", "A", {"format", "1"}); }},
        {"no cell after the key", [](PD_DATA& d) { keySectionThenTable(d, "Format", "A", {"R"}); }},
        {"'=' in a key", [](PD_DATA& d) { entry(d, "k=1", "v"); }},
        {"newline in a value", [](PD_DATA& d) { entry(d, "k", "two\nlines"); }},
        {"padded section name", [](PD_DATA& d) { d.AddKeySection(" padded"); }},
    };
    // clang-format on
    for (const auto& [name, build] : cases) {
        PD_DATA data;
        build(data);
        std::string text = "stale", why;
        EXPECT_FALSE(PD_FormatText(data, text, &why)) << name;
        EXPECT_TRUE(text.empty()) << name;
        EXPECT_FALSE(why.empty()) << name;
    }
}

}  // namespace
