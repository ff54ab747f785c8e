// SPDX-License-Identifier: MIT
// Conditions as users type them: what parses, what is refused and why, and
// how values compare (numbers, text in any case, globs).

#include <gtest/gtest.h>

#include "devctrl/mngr/part_filter.h"

using namespace tarn::vyxpn;
using Op = PartCondition::Op;

TEST(PartFilter, ParsesNameOperatorAndValue) {
    struct Case {
        const char* expression;
        const char* name;
        Op op;
        const char* value;
    };
    for (const Case& c : {
             Case{"LUT>=20000", "LUT", Op::GreaterEqual, "20000"},
             Case{" Pin Count = 256 ", "Pin Count", Op::Equal, "256"},
             Case{"Status!=O", "Status", Op::NotEqual, "O"},
             Case{"Package~BG*", "Package", Op::Glob, "BG*"},
             Case{"IO>1e2", "IO", Op::Greater, "1e2"},
             Case{"Note=a=b", "Note", Op::Equal, "a=b"},  // only the first run is the operator
             Case{"Status=", "Status", Op::Equal, ""},    // no value: the part has none
         }) {
        const PartCondition condition = PartCondition::parse(c.expression);
        EXPECT_EQ(condition.name(), c.name) << c.expression;
        EXPECT_EQ(condition.op(), c.op) << c.expression;
        EXPECT_EQ(condition.value(), c.value) << c.expression;
    }
}

TEST(PartFilter, RefusesMalformedExpressionsSayingWhy) {
    const char* kUse = "; use =, !=, <, <=, >, >= or ~";
    struct Case {
        const char* expression;
        std::string message;
    };
    for (const Case& c : {
             Case{"LUT20000", std::string("filter 'LUT20000' has no operator") + kUse},
             Case{"", std::string("filter '' has no operator") + kUse},
             Case{"LUT=>5", std::string("filter 'LUT=>5' has an unknown operator '=>'") + kUse},
             Case{"LUT==5", std::string("filter 'LUT==5' has an unknown operator '=='") + kUse},
             Case{" >=5", "filter ' >=5' names no item before '>='"},
             Case{"LUT>= ", "filter 'LUT>= ' has no value after '>='"},
         }) {
        try {
            PartCondition::parse(c.expression);
            ADD_FAILURE() << "accepted: " << c.expression;
        } catch (const PartFilterSyntaxError& e) {
            EXPECT_EQ(e.what(), c.message);
        }
    }
    EXPECT_TRUE(PartCondition::hasOperator("Package~[!B]*"));
    EXPECT_FALSE(PartCondition::hasOperator("ZR12-*[!B]G?00C"));
    // A list stops at its first bad expression.
    EXPECT_THROW(PartFilter({"LUT>=1", "Status"}), PartFilterSyntaxError);
}

TEST(PartFilter, ComparesNumbersAsNumbersAndTextWithoutCase) {
    struct Case {
        const char* expression;
        const char* actual;
        bool accepted;
    };
    for (const Case& c : {
             // Numbers: 9 < 10 although "9" > "10" as text; forms of one value are equal.
             Case{"LUT<10", "9", true},
             Case{"LUT>=20000", "24288", true},
             Case{"LUT>=20000", "12096", false},
             Case{"LUT=20000", "20000.0", true},
             Case{"LUT!=20000", "+20000", false},
             Case{"T>-1.5", "-1", true},
             // Either side not a number: text, without regard to case.
             Case{"Status=p", "P", true},
             Case{"Status!=P", "p", false},
             Case{"Code=0x4a02", "0x4A02", true},  // hexadecimal is a name here
             Case{"Code>0x10", "0x9", true},       // so it orders as text
             Case{"LUT<10", "", true},             // no value: the empty text
             Case{"LUT>=10", "n/a", true},         // "N" after "1" as text
             Case{"X=inf", "INF", true},           // not numbers: text
             Case{"Status=", "", true},
             // Globs: text, any case, * ? and sets.
             Case{"Package~bg*", "BG100", true},
             Case{"Package~BG*", "FBG100", false},
             Case{"Package~[BF]G*", "FG484", true},
             Case{"Package~[!B]*", "BG100", false},
             Case{"LUT~2*", "24288", true},
         }) {
        EXPECT_EQ(PartCondition::parse(c.expression).accepts(c.actual), c.accepted)
            << c.expression << " on '" << c.actual << "'";
    }
}

TEST(PartFilter, ReadsOnlyPlainDecimalsAsNumbers) {
    for (const char* number : {"-7", "+7", ".5", "5.", "1E-3", "-2.5e+2"})
        EXPECT_TRUE(parseDecimal(number).has_value()) << number;
    for (const char* text : {"", "-", ".", "e3", "1e", "0x10", "inf", " 1", "1,5", "12a", "1e999"})
        EXPECT_FALSE(parseDecimal(text).has_value()) << '"' << text << '"';
}
