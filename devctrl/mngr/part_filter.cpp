// SPDX-License-Identifier: MIT
#include "devctrl/mngr/part_filter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstring>
#include <unordered_set>
#include <utility>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/comparators.h"
#include "devctrl/util/glob_match.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"

namespace tarn::vyxpn {

namespace {

constexpr const char* kOperatorChars = "=!<>~";
constexpr const char* kOperatorList = "use =, !=, <, <=, >, >= or ~";

const std::array<std::pair<const char*, PartCondition::Op>, 7> kOperators{{
    {"=", PartCondition::Op::Equal},
    {"!=", PartCondition::Op::NotEqual},
    {"<", PartCondition::Op::Less},
    {"<=", PartCondition::Op::LessEqual},
    {">", PartCondition::Op::Greater},
    {">=", PartCondition::Op::GreaterEqual},
    {"~", PartCondition::Op::Glob},
}};

const std::array<const char*, 6> kPartFields{"Device",    "Package", "Speed",
                                             "Condition", "PM",      "Family"};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Byte-wise comparison with ASCII letters folded to upper case: <0, 0, >0.
int compareFolded(const std::string& a, const std::string& b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int left = std::toupper(static_cast<unsigned char>(a[i]));
        const int right = std::toupper(static_cast<unsigned char>(b[i]));
        if (left != right)
            return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

bool ordered(PartCondition::Op op, int comparison) {
    switch (op) {
        case PartCondition::Op::Equal:
            return comparison == 0;
        case PartCondition::Op::NotEqual:
            return comparison != 0;
        case PartCondition::Op::Less:
            return comparison < 0;
        case PartCondition::Op::LessEqual:
            return comparison <= 0;
        case PartCondition::Op::Greater:
            return comparison > 0;
        case PartCondition::Op::GreaterEqual:
            return comparison >= 0;
        case PartCondition::Op::Glob:
            break;
    }
    return false;
}

template <typename Visit>
void forEachItemName(const TarnSDSFile& family, Visit visit) {
    for (const TarnSDSFileSection* table : itemTables(family))
        for (const std::string& name : table->m_items)
            visit(name);
}

}  // namespace

std::string partValue(const TarnSDSFile& family, const std::string& part, const std::string& name) {
    if (!PartCondition::isPartField(name))
        return family.getItemValue(name, part, "");
    if (name == "PM")
        return family.m_pm;
    if (name == "Family")
        return TarnDeviceMngr::basePmToFamily(family.m_pm);
    std::string device, package, speed, condition;
    if (!family.getNameByPart(part, device, package, speed, condition))
        return "";
    if (name == "Device")
        return device;
    if (name == "Package")
        return package;
    return name == "Speed" ? speed : condition;
}

std::optional<double> parseDecimal(const std::string& text) {
    // Checked by hand first: from_chars would also take "inf", "nan" and
    // hexadecimal-looking text, which are names here, not numbers.
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    const std::size_t mantissa = i;
    std::size_t digits = 0;
    for (; i < text.size() && isDigit(text[i]); ++i)
        ++digits;
    if (i < text.size() && text[i] == '.')
        for (++i; i < text.size() && isDigit(text[i]); ++i)
            ++digits;
    if (digits == 0)
        return std::nullopt;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        const std::size_t exponent = i;
        while (i < text.size() && isDigit(text[i]))
            ++i;
        if (i == exponent)
            return std::nullopt;
    }
    if (i != text.size())
        return std::nullopt;
    // from_chars reads no leading '+' and ignores the locale, unlike strtod.
    const char* first = text.data() + (text[0] == '+' ? mantissa : 0);
    double value = 0;
    const auto result = std::from_chars(first, text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

bool PartCondition::isPartField(const std::string& name) {
    return std::find(kPartFields.begin(), kPartFields.end(), name) != kPartFields.end();
}

bool PartCondition::hasOperator(const std::string& text) {
    // A pattern's set may say [!...]: nothing inside brackets counts.
    bool inSet = false;
    for (char c : text) {
        if (inSet)
            inSet = c != ']';
        else if (c == '[')
            inSet = true;
        else if (std::strchr(kOperatorChars, c))
            return true;
    }
    return false;
}

PartCondition PartCondition::parse(const std::string& expression) {
    const std::string quoted = "filter " + util::quotedForMessage(expression);
    const std::size_t opStart = expression.find_first_of(kOperatorChars);
    if (opStart == std::string::npos)
        throw PartFilterSyntaxError(quoted + " has no operator; " + kOperatorList);
    std::size_t opEnd = expression.find_first_not_of(kOperatorChars, opStart);
    if (opEnd == std::string::npos)
        opEnd = expression.size();
    const std::string op = expression.substr(opStart, opEnd - opStart);

    PartCondition condition;
    auto known = std::find_if(kOperators.begin(), kOperators.end(),
                              [&](const auto& entry) { return op == entry.first; });
    if (known == kOperators.end())
        throw PartFilterSyntaxError(quoted + " has an unknown operator '" + op + "'; " +
                                    kOperatorList);
    condition.m_op = known->second;
    condition.m_name = util::trim(expression.substr(0, opStart));
    if (condition.m_name.empty())
        throw PartFilterSyntaxError(quoted + " names no item before '" + op + "'");
    condition.m_value = util::trim(expression.substr(opEnd));
    const bool ordering =
        condition.m_op != Op::Equal && condition.m_op != Op::NotEqual && condition.m_op != Op::Glob;
    if (ordering && condition.m_value.empty())
        throw PartFilterSyntaxError(quoted + " has no value after '" + op + "'");
    condition.m_number = parseDecimal(condition.m_value);
    return condition;
}

bool PartCondition::accepts(const std::string& actual) const {
    if (m_op == Op::Glob)
        return util::matchesGlob(m_value, actual);
    if (m_number) {
        if (const std::optional<double> number = parseDecimal(actual))
            return ordered(m_op, *number < *m_number ? -1 : (*number > *m_number ? 1 : 0));
    }
    return ordered(m_op, compareFolded(actual, m_value));
}

PartFilter::PartFilter(const std::vector<std::string>& expressions) {
    m_conditions.reserve(expressions.size());
    for (const std::string& expression : expressions)
        m_conditions.push_back(PartCondition::parse(expression));
}

void PartFilter::requireKnownNames(const std::vector<const TarnSDSFile*>& families,
                                   const std::string& where) const {
    std::vector<std::string> names;
    for (const PartCondition& condition : m_conditions)
        names.push_back(condition.name());
    requireKnownItemNames(families, names, where);
}

void requireKnownItemNames(const std::vector<const TarnSDSFile*>& families,
                           const std::vector<std::string>& names, const std::string& where) {
    std::unordered_set<std::string> known(kPartFields.begin(), kPartFields.end());
    for (const TarnSDSFile* family : families)
        if (family)
            forEachItemName(*family, [&](const std::string& name) { known.insert(name); });
    for (const std::string& wanted : names) {
        if (known.count(wanted))
            continue;
        NearNames near(wanted);
        for (const std::string& name : known)
            near.consider(name);
        throw UnknownNameError("item", wanted, near.best(), where);
    }
}

bool PartFilter::accepts(const TarnSDSFile& family, const std::string& part) const {
    for (const PartCondition& condition : m_conditions)
        if (!condition.accepts(partValue(family, part, condition.name())))
            return false;
    return true;
}

std::vector<std::string> filterNames(const std::vector<const TarnSDSFile*>& families) {
    std::unordered_set<std::string> seen(kPartFields.begin(), kPartFields.end());
    std::vector<std::string> names(kPartFields.begin(), kPartFields.end());
    for (const TarnSDSFile* family : families)
        if (family)
            forEachItemName(*family, [&](const std::string& name) {
                if (seen.insert(name).second)
                    names.push_back(name);
            });
    sortNatural(names);
    return names;
}

}  // namespace tarn::vyxpn
