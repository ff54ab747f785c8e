#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/pm_devkey.h"

namespace {

using Shape = std::vector<std::vector<std::string>>;

// Every record of `key` as the list of its fields, walked the way the
// loaders walk it.
Shape shapeOf(const PM_DEVKEY* keys, const char* key, char recordSep, char fieldSep) {
    Shape shape;
    PM_DEVKEY_KEYITER it(keys, key, recordSep, fieldSep, 0);
    for (; it.record(); it.setupNextIAndJ()) {
        std::vector<std::string>& fields = shape.emplace_back();
        for (; it.field(); it.advanceToNextJ())
            fields.emplace_back(it.field());
    }
    return shape;
}

const PM_DEVKEY kKeys = PM_DEVKEY::fromText(
    "RECORDS = BG100, B100 :\tQF48 ,Q48 , \n"
    "GAPS = a,,b : : , \n"
    "BLANK =  \t \n"
    "LIST = ZR4, ZR12 ,,ZR25\n"
    "SINGLE = first : second\n",
    "mem");

}  // namespace

TEST(PmDevkeyIter, CutsRecordsAndFieldsAndTrims) {
    EXPECT_EQ(shapeOf(&kKeys, "RECORDS", ':', ','),
              (Shape{{"BG100", "B100"}, {"QF48", "Q48", ""}}));
    // Empty fields are kept; an empty record has no field; " , " is two
    // empty fields.
    EXPECT_EQ(shapeOf(&kKeys, "GAPS", ':', ','), (Shape{{"a", "", "b"}, {}, {"", ""}}));
}

TEST(PmDevkeyIter, AbsentAndEmptyValuesHaveNoRecord) {
    EXPECT_TRUE(shapeOf(&kKeys, "MISSING", ':', ',').empty());
    EXPECT_TRUE(shapeOf(&kKeys, "BLANK", ':', ',').empty());
    EXPECT_TRUE(shapeOf(nullptr, "RECORDS", ':', ',').empty());
    EXPECT_TRUE(shapeOf(&kKeys, nullptr, ':', ',').empty());
}

TEST(PmDevkeyIter, FieldSeparatorZeroKeepsRecordWhole) {
    EXPECT_EQ(shapeOf(&kKeys, "SINGLE", ':', 0), (Shape{{"first"}, {"second"}}));
    EXPECT_EQ(shapeOf(&kKeys, "LIST", ',', 0), (Shape{{"ZR4"}, {"ZR12"}, {}, {"ZR25"}}));

    // The record text itself stays readable for an empty list member.
    PM_DEVKEY_KEYITER it(&kKeys, "LIST", ',', 0);
    it.setupNextIAndJ();
    it.setupNextIAndJ();
    ASSERT_NE(it.record(), nullptr);
    EXPECT_STREQ(it.record(), "");
    EXPECT_EQ(it.field(), nullptr);
}

TEST(PmDevkeyIter, StaysPastTheEnd) {
    PM_DEVKEY_KEYITER it(&kKeys, "SINGLE", ':', ',');
    it.advanceToNextJ();
    EXPECT_EQ(it.field(), nullptr);
    it.advanceToNextJ();  // stepping further past the end changes nothing
    it.setupNextIAndJ();
    EXPECT_STREQ(it.field(), "second");
    it.setupNextIAndJ();
    it.setupNextIAndJ();
    EXPECT_EQ(it.record(), nullptr);
    EXPECT_EQ(it.field(), nullptr);
}
