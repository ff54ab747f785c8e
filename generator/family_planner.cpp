// SPDX-License-Identifier: MIT
#include "generator/family_planner.h"

#include <algorithm>
#include <unordered_set>

#include "generator/package_catalogue.h"
#include "generator/part_names.h"

namespace tarn::vyxpn::gen {

namespace {

constexpr const char* kTwinPackage = "BGN256";
constexpr const char* kTwinOf = "BG256";

std::string weighted(RandomSource& random,
                     const std::vector<std::pair<int, const char*>>& choices) {
    int roll = random.between(0, 99);
    for (const auto& [chance, value] : choices) {
        if (roll < chance)
            return value;
        roll -= chance;
    }
    return choices.back().second;
}

std::size_t combinationsOf(const PackagePlan& package) {
    return package.grades.size() * package.conditions.size() * suffixesOf(package.suffixes).size();
}

// Grades of one package: the device's range, now and then missing one, the
// slowest sometimes industrial only and the fastest commercial only.
std::vector<std::string> gradesFor(RandomSource& random, int first, int count) {
    std::vector<std::string> grades;
    const int dropped = (count > 3 && random.percent(20)) ? random.between(1, count - 2) : -1;
    for (int i = 0; i < count; ++i) {
        if (i == dropped)
            continue;
        std::string grade = std::to_string(first + i);
        if (i == 0 && random.percent(30))
            grade += "/I";
        else if (i == count - 1 && random.percent(40))
            grade += "/C";
        else if (random.percent(4))
            grade += "/CI";
        grades.push_back(grade);
    }
    return grades;
}

PackagePlan drawPackage(RandomSource& random, const PackageType& type, int firstGrade,
                        int gradeCount) {
    PackagePlan package;
    package.name = type.name;
    package.pins = type.pins;
    package.status = weighted(random, {{86, "P"}, {5, "O"}, {5, "PO"}, {3, "E"}, {1, "A"}});
    package.aliasIndex = random.percent(80) ? 0 : random.between(1, 2);
    package.suffixes = weighted(random, {{35, "No"}, {35, "No|ES"}, {22, "No|ES|T"}, {8, "ES|T"}});
    package.conditions = weighted(random, {{78, "IC"}, {17, "ICA"}, {5, "C"}});
    package.ascStock = weighted(random, {{80, "0|0|0"}, {8, "0|1|0"}, {6, "0|2|0"}, {6, "1|0|1"}});
    package.ascLinkable =
        weighted(random, {{15, "0|0|0"}, {35, "1|0|0"}, {35, "1|1|0"}, {15, "1|1|1"}});
    package.grades = gradesFor(random, firstGrade, gradeCount);
    return package;
}

DevicePlan drawDevice(RandomSource& random, const std::string& name,
                      const std::vector<const PackageType*>& pool) {
    DevicePlan device;
    device.name = name;
    device.ascMaxNum =
        std::stoi(weighted(random, {{30, "0"}, {25, "2"}, {20, "4"}, {15, "8"}, {10, "16"}}));
    device.defaultSynthesis = random.percent(70) ? "synplify" : "Precision";
    device.icfEnable = random.percent(60) ? 1 : 0;
    device.logicCells = 1000 * random.between(1, 300);

    const int maxPackages = std::min<int>(10, static_cast<int>(pool.size()));
    const int count = random.between(3, maxPackages);
    const int start = random.between(0, static_cast<int>(pool.size()) - count);
    const int gradeCount = random.between(3, 8);
    const int firstGrade = random.between(1, 13 - gradeCount);
    const bool obsolete = random.percent(3);
    const bool preview = !obsolete && random.percent(3);
    for (int i = start; i < start + count; ++i) {
        device.packages.push_back(drawPackage(random, *pool[i], firstGrade, gradeCount));
        PackagePlan& package = device.packages.back();
        if (obsolete)
            package.status = "O";
        if (preview) {
            package.suffixes = "ES";
            package.status = "A";
        }
        // Now and then the lead-free twin is offered beside BG256 under the
        // same short code: the same part names come out twice.
        if (package.name == kTwinOf && random.percent(30)) {
            package.aliasIndex = 0;
            PackagePlan twin = package;
            twin.name = kTwinPackage;
            device.packages.push_back(twin);
        }
    }
    device.bitOff = preview ? 1 : 0;
    return device;
}

// Devices are released out of name order; DEVICES keeps release order.
void shuffleReleaseOrder(RandomSource& random, std::vector<DevicePlan>& devices) {
    for (std::size_t i = devices.size(); i > 1; --i)
        if (random.percent(25))
            std::swap(devices[i - 1], devices[static_cast<std::size_t>(random.next() % i)]);
}

void drawExceptions(RandomSource& random, FamilyPlan& plan) {
    const auto& devices = plan.devices;
    if (devices.size() < 4)
        return;
    const std::size_t excluded = 1 + static_cast<std::size_t>(random.next() % (devices.size() - 1));
    plan.deviceExceptions.push_back(devices[excluded].name);
    for (int i = 0; i < 2; ++i) {
        const DevicePlan& device =
            devices[(excluded + 1 + static_cast<std::size_t>(i)) % devices.size()];
        const PackagePlan& package =
            device.packages[static_cast<std::size_t>(i) % device.packages.size()];
        plan.packageExceptions.emplace_back(device.name, package.name);
    }
    const std::vector<std::string> names = combinationNames(plan);
    for (int i = 0; i < 6; ++i)
        plan.partExceptions.push_back(random.pick(names));
    // An exception for a name that is never generated does nothing.
    plan.partExceptions.push_back(composePartName(devices[0].name, "99", "ZZ9", 'C', ""));
}

void listSomeParts(RandomSource& random, FamilyPlan& plan) {
    std::unordered_set<std::string> seen;
    forEachCombination(plan, [&](Combination& c) {
        if (!seen.insert(c.name).second || !random.percent(70))
            return;
        std::vector<std::string> values{weighted(random, {{90, "P"}, {6, "O"}, {4, "E"}})};
        if (random.percent(30))
            values.push_back(random.percent(50) ? "synplify" : "precision");
        plan.listedParts.emplace_back(c.name, std::move(values));
    });
    // Listed, but no combination produces them: never built.
    plan.listedParts.push_back(
        {composePartName(plan.devices[0].name, "99", "ZZ9", 'C', ""), {"P"}});
    // Listed mode ignores the device exceptions.
    plan.deviceExceptions.push_back(plan.devices.back().name);
}

void orderSomeParts(RandomSource& random, FamilyPlan& plan,
                    const std::vector<OrderedPart>& borrowed) {
    std::unordered_set<std::string> seen;
    forEachCombination(plan, [&](Combination& c) {
        if (!seen.insert(c.name).second || !random.percent(85))
            return;
        OrderedPart part{c.name,
                         c.device.name,
                         c.package.name,
                         c.grade,
                         std::string(1, c.condition),
                         c.suffix,
                         weighted(random, {{90, "P"}, {6, "O"}, {4, "E"}}),
                         std::to_string(c.device.ascMaxNum),
                         random.percent(70) ? "tray" : "reel"};
        plan.orderedParts.push_back(std::move(part));
    });
    for (const OrderedPart& part : borrowed)
        if (seen.insert(part.name).second)
            plan.orderedParts.push_back(part);
}

double combinationShare(FamilyKind kind) {
    switch (kind) {
        case FamilyKind::Listed:
            return 0.7;
        case FamilyKind::Ordered:
            return 0.85;
        default:
            return 1.0;
    }
}

}  // namespace

FamilyPlan planFamily(const FamilyRequest& request, RandomSource random) {
    FamilyPlan plan;
    plan.kind = request.kind;
    plan.pm = request.pm;
    plan.familyNames = request.familyNames;
    plan.binaryPartData = request.binaryPartData;

    // The family's own package range, smallest first.
    std::vector<const PackageType*> pool;
    const PackageType* twin = nullptr;
    for (const PackageType& type : packageTypes()) {
        if (type.name == kTwinPackage)
            twin = &type;
        else if (random.percent(75) || type.name == kTwinOf)
            pool.push_back(&type);
    }
    if (pool.size() < 10) {
        pool.clear();
        for (const PackageType& type : packageTypes())
            if (&type != twin)
                pool.push_back(&type);
    }

    const std::size_t borrowed = request.borrowed.size();
    const double wanted =
        static_cast<double>(request.parts > borrowed ? request.parts - borrowed : 1) /
        combinationShare(request.kind);
    std::size_t combinations = 0;
    int number = 0;
    while (plan.devices.empty() || static_cast<double>(combinations) < wanted) {
        number += random.between(1, 6);
        plan.devices.push_back(
            drawDevice(random, "Q" + request.deviceLetters + std::to_string(number), pool));
        for (const PackagePlan& package : plan.devices.back().packages)
            combinations += combinationsOf(package);
    }
    shuffleReleaseOrder(random, plan.devices);

    for (const PackageType* type : pool)
        if (!type->aliases.empty())
            plan.packageAliases.emplace_back(type->name, type->aliases);
    plan.packageAliases.emplace_back(twin->name, twin->aliases);

    switch (request.kind) {
        case FamilyKind::Generated:
            drawExceptions(random, plan);
            break;
        case FamilyKind::Listed:
            listSomeParts(random, plan);
            break;
        case FamilyKind::Ordered:
            orderSomeParts(random, plan, request.borrowed);
            break;
        case FamilyKind::Disabled:
            break;
    }
    return plan;
}

std::vector<OrderedPart> borrowParts(const FamilyPlan& donor, std::size_t count) {
    const std::vector<std::string> built = builtPartNames(donor);
    std::unordered_set<std::string> wanted;
    const std::size_t step =
        std::max<std::size_t>(1, built.size() / std::max<std::size_t>(1, count));
    for (std::size_t i = step / 2; i < built.size() && wanted.size() < count; i += step)
        wanted.insert(built[i]);

    std::vector<OrderedPart> parts;
    forEachCombination(donor, [&](Combination& c) {
        if (wanted.erase(c.name) == 0)
            return;
        parts.push_back(OrderedPart{c.name, c.device.name, c.package.name, c.grade,
                                    std::string(1, c.condition), c.suffix, "P",
                                    std::to_string(c.device.ascMaxNum), "tray"});
    });
    return parts;
}

}  // namespace tarn::vyxpn::gen
