#include <gtest/gtest.h>

#include <string>

#include "platform/pd_data.h"
#include "support/test_env.h"

using devctrl_test::TempDir;
using devctrl_test::TraceCapture;

namespace {

const PD_TABLE* tableAt(const PD_DATA& data, int index) {
    return dynamic_cast<const PD_TABLE*>(data.GetSection(index));
}

}  // namespace

TEST(PdTextReader, SectionsEntriesAndTables) {
    PD_DATA data;
    ASSERT_TRUE(
        data.LoadTxtString("ignored = before any header\n"
                           "Format = X\n"
                           "[[Device Info]]\r\n"
                           "  Vendor = Tarn, Inc.  \n"
                           "\n"
                           "Format = LUT, FF, EBR\n"
                           "ZR4_QF48 = 640, 640, 2\n"
                           "ZR4_BG100 = 640\n"
                           "format = RAM\n"
                           "ZR12_BG100 = 9, 10\n"
                           "[[Other]]\n"
                           "Note = a = b\n"));
    ASSERT_EQ(data.GetNumOfSections(), 4);
    EXPECT_STREQ(data.GetSectionName(0), "Device Info");
    EXPECT_EQ(data.GetSection(0)->kind(), PD_KEYSECT);
    ASSERT_EQ(data.GetSection(0)->entries().size(), 1u);
    EXPECT_EQ(data.pool().at(data.GetSection(0)->entries()[0].second), "Tarn, Inc.");

    // Both "Format" lines start a table named "Format", whatever their case.
    const PD_TABLE* first = tableAt(data, 1);
    ASSERT_NE(first, nullptr);
    EXPECT_STREQ(data.GetSectionName(1), "Format");
    EXPECT_EQ(first->kind(), PD_TBLSECT);
    ASSERT_EQ(first->GetNumOfColumns(), 4);
    EXPECT_STREQ(first->GetColumnName(0), "Key");
    EXPECT_STREQ(first->GetColumnName(3), "EBR");
    ASSERT_EQ(first->GetNumOfRows(), 2);
    EXPECT_STREQ(first->GetValueAt(0, 0), "ZR4_QF48");
    EXPECT_STREQ(first->GetValueAt(0, 3), "2");
    // A short row keeps its length; missing cells and rows read as "".
    EXPECT_EQ(first->GetRowList()[1].size(), 2u);
    EXPECT_STREQ(first->GetValueAt(1, 2), "");
    EXPECT_STREQ(first->GetValueAt(5, 0), "");
    EXPECT_STREQ(first->GetColumnName(-1), "");

    const PD_TABLE* second = tableAt(data, 2);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second->GetColumnName(1), "RAM");
    EXPECT_STREQ(second->GetValueAt(0, 2), "10");

    // Entry values are kept whole, '=' and all.
    EXPECT_EQ(data.pool().at(data.GetSection(3)->entries()[0].second), "a = b");
    EXPECT_EQ(data.GetSection(-1), nullptr);
    EXPECT_EQ(data.GetSectionName(4), nullptr);
}

TEST(PdTextReader, LineWithoutEqualsIsReportedAndSkipped) {
    PD_DATA data;
    TraceCapture trace;
    ASSERT_TRUE(data.LoadTxtString("[[S]]\nFormat = A\nno equals here\nR = 1\n", "x.pwd"));
    EXPECT_TRUE(trace.contains("x.pwd:3"));
    ASSERT_EQ(tableAt(data, 1)->GetNumOfRows(), 1);
    EXPECT_STREQ(tableAt(data, 1)->GetValueAt(0, 0), "R");
}

TEST(PdTextReader, FileReadingAndReloading) {
    TempDir dir;
    PD_DATA data;
    EXPECT_FALSE(data.LoadTxtFile(dir.file("missing.pwd").c_str()));
    EXPECT_FALSE(data.LoadTxtFile(dir.path().c_str()));  // a directory
    EXPECT_FALSE(data.LoadTxtFile(nullptr));

    std::string path = dir.write("a.pwd", "[[A]]\nFormat = X\nK = 1\n");
    ASSERT_TRUE(data.LoadTxtFile(path.c_str()));
    EXPECT_EQ(data.GetNumOfSections(), 2);
    // Loading again replaces the content instead of adding to it.
    ASSERT_TRUE(data.LoadTxtFile(path.c_str()));
    EXPECT_EQ(data.GetNumOfSections(), 2);
    EXPECT_FALSE(data.LoadTxtFile(dir.file("missing.pwd").c_str()));
    EXPECT_EQ(data.GetNumOfSections(), 0);
}
