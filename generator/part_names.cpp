// SPDX-License-Identifier: MIT
#include "generator/part_names.h"

#include "devctrl/sds/sds_file.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <unordered_set>

namespace tarn::vyxpn::gen {

namespace {

void sortUnique(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace

std::string FamilyPlan::shortPackage(const PackagePlan& package) const {
    for (const auto& [name, aliases] : packageAliases) {
        if (name != package.name)
            continue;
        if (package.aliasIndex < 0 || package.aliasIndex >= static_cast<int>(aliases.size()))
            return package.name;
        return aliases[static_cast<std::size_t>(package.aliasIndex)];
    }
    return package.name;
}

std::string gradeName(const std::string& written) {
    return written.substr(0, written.find('/'));
}

std::string composePartName(const std::string& device, const std::string& grade,
                            const std::string& shortPackage, char condition,
                            const std::string& suffix) {
    return TarnSDSFile::partNameOf(device, grade, shortPackage, condition, suffix);
}

std::vector<std::string> suffixesOf(const std::string& esColumn) {
    std::vector<std::string> suffixes;
    std::size_t start = 0;
    while (true) {
        const std::size_t bar = esColumn.find('|', start);
        std::string suffix = esColumn.substr(start, bar - start);
        std::string lower = suffix;
        for (char& c : lower)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        suffixes.push_back(lower == "no" ? std::string() : suffix);
        if (bar == std::string::npos)
            break;
        start = bar + 1;
    }
    return suffixes;
}

void forEachCombination(const FamilyPlan& plan, const std::function<void(Combination&)>& take) {
    for (const DevicePlan& device : plan.devices) {
        for (const PackagePlan& package : device.packages) {
            const std::string shortCode = plan.shortPackage(package);
            const std::vector<std::string> suffixes = suffixesOf(package.suffixes);
            for (const std::string& written : package.grades) {
                const std::string grade = gradeName(written);
                for (char condition : package.conditions)
                    for (const std::string& suffix : suffixes) {
                        Combination combination{
                            device,
                            package,
                            grade,
                            condition,
                            suffix,
                            composePartName(device.name, grade, shortCode, condition, suffix)};
                        take(combination);
                    }
            }
        }
    }
}

std::vector<std::string> combinationNames(const FamilyPlan& plan) {
    std::vector<std::string> names;
    forEachCombination(plan, [&](Combination& c) { names.push_back(std::move(c.name)); });
    return names;
}

std::vector<std::string> builtPartNames(const FamilyPlan& plan) {
    std::vector<std::string> names;
    switch (plan.kind) {
        case FamilyKind::Disabled:
            break;
        case FamilyKind::Ordered:
            for (const OrderedPart& part : plan.orderedParts)
                names.push_back(part.name);
            break;
        case FamilyKind::Listed: {
            // Exceptions do not apply: a listed name is built when some
            // combination produces it.
            std::unordered_set<std::string> listed;
            for (const auto& entry : plan.listedParts)
                listed.insert(entry.first);
            forEachCombination(plan, [&](Combination& c) {
                if (listed.count(c.name))
                    names.push_back(std::move(c.name));
            });
            break;
        }
        case FamilyKind::Generated: {
            const std::unordered_set<std::string> devices(plan.deviceExceptions.begin(),
                                                          plan.deviceExceptions.end());
            const std::set<std::pair<std::string, std::string>> packages(
                plan.packageExceptions.begin(), plan.packageExceptions.end());
            const std::unordered_set<std::string> parts(plan.partExceptions.begin(),
                                                        plan.partExceptions.end());
            forEachCombination(plan, [&](Combination& c) {
                if (devices.count(c.device.name) ||
                    packages.count({c.device.name, c.package.name}) || parts.count(c.name))
                    return;
                names.push_back(std::move(c.name));
            });
            break;
        }
    }
    sortUnique(names);
    return names;
}

}  // namespace tarn::vyxpn::gen
