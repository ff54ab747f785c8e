// SPDX-License-Identifier: MIT
#include "generator/catalogue_layout.h"

#include <algorithm>
#include <cmath>

namespace tarn::vyxpn::gen {

namespace {

constexpr std::size_t kPartsPerExtraFamily = 60000;
constexpr std::size_t kBaseFamilies = 4;
constexpr std::size_t kMinFamilies = 5;
constexpr double kOrderedShare = 0.15;
constexpr double kLargestShare = 0.10;
// No other family may come closer than this to the largest one.
constexpr double kRunnerUpLimit = 0.9;
constexpr std::size_t kDisabledParts = 12;
constexpr std::size_t kMinFamilyParts = 24;

char kindLetter(FamilyKind kind) {
    switch (kind) {
        case FamilyKind::Ordered:
            return 'b';
        case FamilyKind::Listed:
            return 'c';
        case FamilyKind::Disabled:
            return 'x';
        default:
            return 'a';
    }
}

// A, B, ... Z, AA, AB, ...: the letters of a family's device names.
std::string deviceLetters(std::size_t index) {
    std::string letters;
    for (std::size_t n = index + 1; n > 0; n = (n - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (n - 1) % 26));
    return letters;
}

std::vector<double> unevenWeights(RandomSource& random, std::size_t count) {
    std::vector<double> weights;
    for (std::size_t i = 0; i < count; ++i)
        weights.push_back(0.25 + 0.75 * random.unit());
    return weights;
}

}  // namespace

std::vector<FamilySlot> layoutCatalogue(std::size_t parts, RandomSource random) {
    const std::size_t families =
        std::max(kMinFamilies, parts / kPartsPerExtraFamily + kBaseFamilies);
    const std::size_t ordered = std::max<std::size_t>(
        1,
        static_cast<std::size_t>(std::lround(static_cast<double>(families - 1) * kOrderedShare)));
    const std::size_t others = families - 2 - ordered;  // listed + generated, largest excluded

    // Kinds in a seed-dependent order; the largest family is one of the
    // generated ones.
    std::vector<FamilyKind> kinds{FamilyKind::Disabled, FamilyKind::Listed};
    kinds.insert(kinds.end(), ordered, FamilyKind::Ordered);
    kinds.insert(kinds.end(), families - kinds.size(), FamilyKind::Generated);
    for (std::size_t i = kinds.size(); i > 1; --i)
        std::swap(kinds[i - 1], kinds[static_cast<std::size_t>(random.next() % i)]);

    // Shares: ordered families together kOrderedShare; the largest a tenth,
    // or enough to stay ahead of every other family.
    const std::vector<double> otherWeights = unevenWeights(random, others);
    const std::vector<double> orderedWeights = unevenWeights(random, ordered);
    double otherTotal = 0, otherMax = 0, orderedTotal = 0;
    for (double w : otherWeights) {
        otherTotal += w;
        otherMax = std::max(otherMax, w);
    }
    for (double w : orderedWeights)
        orderedTotal += w;
    const double rest = 1.0 - kOrderedShare;
    const double biggestOther = otherTotal > 0 ? otherMax / otherTotal : 0;
    const double largest =
        std::max(kLargestShare, rest * biggestOther / (kRunnerUpLimit + biggestOther));

    std::vector<FamilySlot> slots;
    std::size_t nextOther = 0, nextOrdered = 0;
    bool largestPlaced = false;
    auto budget = [&](double share) {
        return std::max(kMinFamilyParts,
                        static_cast<std::size_t>(std::llround(share * static_cast<double>(parts))));
    };
    for (std::size_t index = 0; index < families; ++index) {
        FamilySlot slot;
        slot.kind = kinds[index];
        const std::string number = std::to_string(index);
        slot.pm = "zq" + number + kindLetter(slot.kind) + "00";
        slot.familyNames = {"ZQ" + number};
        slot.deviceLetters = deviceLetters(index);
        slot.binaryPartData = index % 2 == 1;
        switch (slot.kind) {
            case FamilyKind::Disabled:
                slot.parts = kDisabledParts;
                break;
            case FamilyKind::Ordered:
                // The first ordered family is also sold under a second name.
                if (nextOrdered == 0)
                    slot.familyNames.push_back("ZQ" + number + "L");
                // Capped below the largest family, which is a generated one.
                slot.parts =
                    budget(std::min(kRunnerUpLimit * largest,
                                    kOrderedShare * orderedWeights[nextOrdered++] / orderedTotal));
                break;
            case FamilyKind::Generated:
                if (!largestPlaced) {
                    largestPlaced = true;
                    slot.parts = budget(largest);
                    break;
                }
                [[fallthrough]];
            case FamilyKind::Listed:
                slot.parts = budget((rest - largest) * otherWeights[nextOther++] / otherTotal);
                break;
        }
        slots.push_back(std::move(slot));
    }
    return slots;
}

}  // namespace tarn::vyxpn::gen
