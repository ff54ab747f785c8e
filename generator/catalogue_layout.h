// SPDX-License-Identifier: MIT
#pragma once
// How a catalogue of a given size is divided into families: how many, which
// kind each is, its PM code and family names, and about how many parts it
// gets. About parts/60000 + 4 families (at least 5): one switched off, one
// listing its parts out of a generated range, ordered families with about
// 15% of the parts, one family with about a tenth of all parts (more when
// there are too few families for a tenth to be the most), the rest spread
// unevenly.

#include <cstddef>
#include <string>
#include <vector>

#include "generator/family_plan.h"
#include "generator/random_source.h"

namespace tarn::vyxpn::gen {

struct FamilySlot {
    FamilyKind kind = FamilyKind::Generated;
    std::string pm;
    std::vector<std::string> familyNames;
    std::string deviceLetters;
    std::size_t parts = 0;
    bool binaryPartData = false;
};

std::vector<FamilySlot> layoutCatalogue(std::size_t parts, RandomSource random);

}  // namespace tarn::vyxpn::gen
