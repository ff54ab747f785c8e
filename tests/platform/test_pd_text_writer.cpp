// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"

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
    std::string second;
    ASSERT_TRUE(PD_FormatText(again, second));
    EXPECT_EQ(second, text);
}

TEST(PdTextWriter, RefusesWhatTheTextFormCannotSay) {
    using Build = void (*)(PD_DATA&);
    const std::pair<const char*, Build> cases[] = {
        {"table first", [](PD_DATA& d) { d.AddTable("Format"); }},
        {"'=' in a key",
         [](PD_DATA& d) {
             d.AddKeySection("S")->addEntry(d.pool().intern("k=1"), d.pool().intern("v"));
         }},
        {"padded section name", [](PD_DATA& d) { d.AddKeySection(" padded"); }},
    };
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
