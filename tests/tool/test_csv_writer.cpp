// SPDX-License-Identifier: MIT
// CSV fields are quoted exactly when a reader would otherwise split, join or
// trim them.
#include <gtest/gtest.h>

#include <sstream>

#include "csv_writer.h"

namespace {

using devctrl_tool::csvField;
using devctrl_tool::writeCsvRecord;

TEST(CsvWriter, QuotesOnlyWhatAReaderWouldMisread) {
    const struct {
        std::string field;
        std::string written;
    } cases[]{
        {"ZR4-6BG100C", "ZR4-6BG100C"},
        {"", ""},
        {"Pin Count", "Pin Count"},  // inner blanks are kept by readers
        {"IC,A", "\"IC,A\""},
        {"say \"hi\"", "\"say \"\"hi\"\"\""},
        {"\"", "\"\"\"\""},
        {"two\nlines", "\"two\nlines\""},
        {"cr\r", "\"cr\r\""},
        {" lead", "\" lead\""},
        {"trail\t", "\"trail\t\""},
        {"a'b;c", "a'b;c"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(csvField(c.field), c.written) << c.field;
}

TEST(CsvWriter, RecordsEndInCrLfAndKeepEmptyFields) {
    std::ostringstream out;
    writeCsvRecord(out, {"part", "LUT", "Pin Count"});
    writeCsvRecord(out, {"ZS3-5N48E", "", "48,49"});
    writeCsvRecord(out, {""});
    EXPECT_EQ(out.str(), "part,LUT,Pin Count\r\nZS3-5N48E,,\"48,49\"\r\n\r\n");
}

}  // namespace
