// SPDX-License-Identifier: MIT
#pragma once
// Conditions on the items of a part, such as `LUT>=20000`, `Pin Count=256`,
// `Status=P` or `Package~BG*`: what a part search filters by.
//
// A condition is an item name, an operator and a value. The name is the text
// before the operator, trimmed (it may hold blanks); the value is the text
// after it, trimmed. The operators are = != < <= > >= and ~, a glob (* ? and
// [...]) matched without regard to letter case. The operator is the whole run
// of the characters = ! < > ~ that starts at the first of them, so a value
// cannot begin with one of those characters.
//
// A part's value for a name is its item as getItemValue reads it (the part's
// own row, else the package, device or family table, else the generated part
// table); a part without a value has the empty text. These names are the
// part's fields instead, even where a table has an item of the same name
// (the package tables' Condition column lists the letters a package is
// offered in, not the part's condition):
//   Device, Package, Speed, Condition  the part's fields, as getNameByPart
//                                      gives them (Condition is COM, IND
//                                      or AUTO)
//   PM, Family                         the family the part is searched in:
//                                      its PM code and its family name
//
// Comparison: when the value and the condition's value both read as decimal
// numbers (sign, digits, fraction, exponent; nothing else), as numbers;
// otherwise as text, byte by byte without regard to ASCII letter case. A glob
// always compares text.

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnSDSFile;

// A malformed condition; what() says what is wrong with which condition.
class DEVCTRL_API PartFilterSyntaxError : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

class DEVCTRL_API PartCondition {
  public:
    enum class Op { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual, Glob };

    // Throws PartFilterSyntaxError for an expression without an operator,
    // with an unknown operator, without an item name, or without a value
    // after < <= > >= (an empty value is allowed after =, != and ~).
    static PartCondition parse(const std::string& expression);

    const std::string& name() const { return m_name; }
    Op op() const { return m_op; }
    const std::string& value() const { return m_value; }
    // Whether a part whose value is `actual` satisfies the condition.
    bool accepts(const std::string& actual) const;
    // Whether `name` is a part field rather than an item.
    static bool isPartField(const std::string& name);
    // Whether `text` holds an operator character outside a [...] set, and so
    // is meant as a condition rather than a name pattern (part names hold
    // none of them): for a search box that takes either.
    static bool hasOperator(const std::string& text);

  private:
    std::string m_name;
    Op m_op = Op::Equal;
    std::string m_value;
    std::optional<double> m_number;  // m_value as a number, when it is one
};

// The decimal number `text` holds, if it holds nothing else.
DEVCTRL_API std::optional<double> parseDecimal(const std::string& text);

// Conditions that must all hold.
class DEVCTRL_API PartFilter {
  public:
    PartFilter() = default;
    // Parses each expression in turn; throws PartFilterSyntaxError for the
    // first malformed one.
    explicit PartFilter(const std::vector<std::string>& expressions);

    bool empty() const { return m_conditions.empty(); }
    const std::vector<PartCondition>& conditions() const { return m_conditions; }

    // Throws UnknownNameError (kind "item", " in <where>" when `where` is
    // given) for the first condition whose name is neither a part field nor
    // an item that one of `families` defines, with the nearest such names as
    // suggestions. Nothing is ever silently unmatched.
    void requireKnownNames(const std::vector<const TarnSDSFile*>& families,
                           const std::string& where = "") const;

    // Whether `part`, searched in `family`, satisfies every condition. Raises
    // std::out_of_range where getItemValue does.
    bool accepts(const TarnSDSFile& family, const std::string& part) const;

  private:
    std::vector<PartCondition> m_conditions;
};

// The value a condition on `name` compares for `part`, searched in `family`:
// the part field, or the item as getItemValue reads it ("" when the part has
// none). What a column of a part listing shows, too. Raises
// std::out_of_range where getItemValue does.
DEVCTRL_API std::string partValue(const TarnSDSFile& family, const std::string& part,
                                  const std::string& name);

// Throws UnknownNameError (kind "item", " in <where>" when `where` is given)
// for the first of `names` that is neither a part field nor an item one of
// `families` defines, with the nearest such names as suggestions.
DEVCTRL_API void requireKnownItemNames(const std::vector<const TarnSDSFile*>& families,
                                       const std::vector<std::string>& names,
                                       const std::string& where = "");

// Every name a condition may use on `families`: the part fields and every
// column of their part items, package, device, family and part tables; each
// once, in natural order (sortNatural).
DEVCTRL_API std::vector<std::string> filterNames(const std::vector<const TarnSDSFile*>& families);

}  // namespace tarn::vyxpn
