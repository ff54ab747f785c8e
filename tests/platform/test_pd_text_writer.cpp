#include <gtest/gtest.h>

#include <string>

#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"
#include "tests/platform/pd_test_support.h"

using devctrl_test::describePartData;

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

TEST(PdTextWriter, RefusesWhatTheTextFormCannotSay) {
    auto refused = [](void (*build)(PD_DATA&)) {
        PD_DATA data;
        build(data);
        std::string text = "stale", why;
        bool ok = PD_FormatText(data, text, &why);
        return !ok && text.empty() && !why.empty();
    };
    EXPECT_TRUE(refused([](PD_DATA& d) { d.AddTable("Format"); }));  // table first
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S");
        auto* table = d.AddTable("Other");
        table->addColumn(d.pool().intern("Key"));
        table->addColumn(d.pool().intern("A"));
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S");
        auto* table = d.AddTable("Format");
        table->addColumn(d.pool().intern("Key"));
        table->addColumn(d.pool().intern("A,B"));
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S");
        auto* table = d.AddTable("Format");
        table->addColumn(d.pool().intern("Key"));
        table->addColumn(d.pool().intern("A"));
        table->addRow({d.pool().intern("format"), d.pool().intern("1")});
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S");
        auto* table = d.AddTable("Format");
        table->addColumn(d.pool().intern("Key"));
        table->addColumn(d.pool().intern("A"));
        table->addRow({d.pool().intern("R")});  // no cell after the key
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S")->addEntry(d.pool().intern("k=1"), d.pool().intern("v"));
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) {
        d.AddKeySection("S")->addEntry(d.pool().intern("k"), d.pool().intern("two\nlines"));
    }));
    EXPECT_TRUE(refused([](PD_DATA& d) { d.AddKeySection(" padded"); }));
}
