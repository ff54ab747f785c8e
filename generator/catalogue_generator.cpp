// SPDX-License-Identifier: MIT
#include "generator/catalogue_generator.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "generator/catalogue_layout.h"
#include "generator/family_files_writer.h"
#include "generator/family_planner.h"
#include "generator/part_names.h"
#include "generator/shared_files_writer.h"

namespace fs = std::filesystem;

namespace tarn::vyxpn::gen {

namespace {

constexpr std::size_t kSampleTarget = 1000;
constexpr std::size_t kMinSamplesPerFamily = 3;
constexpr std::size_t kSharedNames = 36;

// Up to `count` names evenly spread over a sorted list.
std::vector<std::string> spread(const std::vector<std::string>& names, std::size_t count) {
    std::vector<std::string> picked;
    if (names.empty() || count == 0)
        return picked;
    count = std::min(count, names.size());
    for (std::size_t i = 0; i < count; ++i)
        picked.push_back(names[i * names.size() / count]);
    return picked;
}

void prepareDirectory(const std::string& directory) {
    std::error_code error;
    if (fs::exists(directory, error)) {
        if (!fs::is_directory(directory, error))
            throw std::runtime_error(directory + " exists and is not a directory");
        if (!fs::is_empty(directory, error) || error)
            throw std::runtime_error(directory + " is not empty");
        return;
    }
    if (!fs::create_directories(directory, error) || error)
        throw std::runtime_error("cannot create " + directory +
                                 (error ? " (" + error.message() + ")" : std::string()));
}

const char* kindName(FamilyKind kind) {
    switch (kind) {
        case FamilyKind::Ordered:
            return "ordered (opn)";
        case FamilyKind::Listed:
            return "generated, listed parts only";
        case FamilyKind::Disabled:
            return "switched off";
        default:
            return "generated";
    }
}

struct FamilyResult {
    std::string pm;
    std::size_t parts = 0;
    std::vector<std::string> names;  // an even spread of the family's parts
};

}  // namespace

GeneratedCatalogue generateCatalogue(const std::string& directory,
                                     const GeneratorOptions& options) {
    prepareDirectory(directory);
    const RandomSource root(options.seed);
    const std::vector<FamilySlot> slots = layoutCatalogue(options.parts, root.fork(0));

    // Ordered families come last: one of them lists a few parts of a
    // generated family planned before it.
    std::vector<std::size_t> order(slots.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_partition(order.begin(), order.end(),
                          [&](std::size_t i) { return slots[i].kind != FamilyKind::Ordered; });

    GeneratedCatalogue catalogue;
    std::vector<OrderedPart> borrowed;
    std::vector<FamilyResult> results;
    for (std::size_t index : order) {
        const FamilySlot& slot = slots[index];
        FamilyRequest request{
            slot.kind,           slot.pm, slot.familyNames, slot.deviceLetters, slot.parts,
            slot.binaryPartData, {}};
        if (slot.kind == FamilyKind::Ordered && catalogue.sharedParts.empty())
            request.borrowed = borrowed;
        const FamilyPlan plan = planFamily(request, root.fork(index + 1));
        if (slot.kind == FamilyKind::Generated && borrowed.empty())
            borrowed = borrowParts(plan, kSharedNames);
        for (const OrderedPart& part : request.borrowed)
            catalogue.sharedParts.push_back(part.name);

        const std::string familyDirectory = directory + "/" + slot.pm;
        std::error_code error;
        fs::create_directory(familyDirectory, error);
        if (error)
            throw std::runtime_error("cannot create " + familyDirectory);
        writeFamilyKey(plan, familyDirectory);
        writeDeviceTable(plan, familyDirectory);
        writePartData(plan, familyDirectory);

        const std::vector<std::string> built = builtPartNames(plan);
        if (slot.kind == FamilyKind::Disabled)
            catalogue.disabledPm = slot.pm;
        else
            results.push_back({slot.pm, built.size(), spread(built, kSampleTarget)});
        catalogue.pms.push_back(slot.pm);
        if (options.progress)
            options.progress(slot.pm + " " + slot.familyNames.front() + ": " +
                             std::to_string(slot.kind == FamilyKind::Disabled
                                                ? combinationNames(plan).size()
                                                : built.size()) +
                             " parts, " + kindName(slot.kind) + ", " +
                             (slot.binaryPartData ? "binary" : "text") + " part data");
    }

    std::sort(catalogue.pms.begin(), catalogue.pms.end());
    std::sort(catalogue.sharedParts.begin(), catalogue.sharedParts.end());
    std::sort(results.begin(), results.end(),
              [](const FamilyResult& a, const FamilyResult& b) { return a.pm < b.pm; });
    std::vector<std::string> pool;
    for (const FamilyResult& family : results) {
        catalogue.parts += family.parts;
        if (family.parts > catalogue.largestPmParts) {
            catalogue.largestPmParts = family.parts;
            catalogue.largestPm = family.pm;
        }
        pool.insert(pool.end(), family.names.begin(), family.names.end());
    }
    for (const FamilyResult& family : results) {
        const std::size_t quota =
            std::max(kMinSamplesPerFamily,
                     catalogue.parts ? kSampleTarget * family.parts / catalogue.parts : 0);
        for (std::string& name : spread(family.names, quota))
            catalogue.sampleParts.push_back(std::move(name));
    }

    writeAscCatalogue(directory);
    writeRenamedDevices(directory, pool, root.fork(slots.size() + 1));
    return catalogue;
}

}  // namespace tarn::vyxpn::gen
