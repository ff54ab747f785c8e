// SPDX-License-Identifier: MIT
#pragma once
// Draws the content of one family from the random source: devices with their
// packages, grades, conditions, suffixes and table values, until the family
// holds about the number of parts it was given.

#include <cstddef>
#include <string>
#include <vector>

#include "generator/family_plan.h"
#include "generator/random_source.h"

namespace tarn::vyxpn::gen {

struct FamilyRequest {
    FamilyKind kind = FamilyKind::Generated;
    std::string pm;
    std::vector<std::string> familyNames;
    std::string deviceLetters;  // device names are 'Q' + letters + number
    std::size_t parts = 0;      // about this many parts
    bool binaryPartData = false;
    // Ordered families only: records of another family's parts to list as
    // well, so that a few names belong to two PMs.
    std::vector<OrderedPart> borrowed;
};

FamilyPlan planFamily(const FamilyRequest& request, RandomSource random);

// About `count` parts that a planned family builds, spread over it, as
// records an ordered family can list.
std::vector<OrderedPart> borrowParts(const FamilyPlan& donor, std::size_t count);

}  // namespace tarn::vyxpn::gen
