// SPDX-License-Identifier: MIT
#pragma once
// The part names the library builds from a family plan, worked out by the
// library's own rules: every device, package, grade, condition letter and
// suffix of a generated family minus its exceptions; only the listed names
// for a listed family; one name per record for an ordered family. A name
// produced twice is one part.

#include <functional>
#include <string>
#include <vector>

#include "generator/family_plan.h"

namespace tarn::vyxpn::gen {

// DEVICE-GRADE + short package + condition letter (A written E) + suffix,
// upper case.
std::string composePartName(const std::string& device, const std::string& grade,
                            const std::string& shortPackage, char condition,
                            const std::string& suffix);

// The suffixes an ES column value stands for ("No" is the empty suffix).
std::vector<std::string> suffixesOf(const std::string& esColumn);

// One combination of device, package, grade, condition letter and suffix.
struct Combination {
    const DevicePlan& device;
    const PackagePlan& package;
    std::string grade;
    char condition;
    std::string suffix;
    std::string name;
};

// Walks the combinations in generation order, exceptions not applied.
void forEachCombination(const FamilyPlan& plan, const std::function<void(Combination&)>& take);

// Every name the combinations of a plan give, exceptions not applied,
// in generation order and possibly with repeats.
std::vector<std::string> combinationNames(const FamilyPlan& plan);

// The names the library builds for the plan, sorted byte-wise, each once.
// Empty for a disabled family.
std::vector<std::string> builtPartNames(const FamilyPlan& plan);

}  // namespace tarn::vyxpn::gen
