// SPDX-License-Identifier: MIT
#pragma once
// What one generated family holds before it is written: its PM, names, base
// lists, table values and exceptions. The writers turn a plan into files and
// the part-name expansion computes from the same plan the parts the library
// will build, so the two cannot drift apart.

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarn::vyxpn::gen {

enum class FamilyKind {
    Generated,  // every combination, minus the exceptions
    Listed,     // generated, but only the parts listed in PART_DATAS are kept
    Ordered,    // one part per PART_DATAS record (method "opn")
    Disabled,   // PM_ENABLE false: never loaded
};

struct PackagePlan {
    std::string name;
    std::string status;       // P, PO, O, E, A
    int aliasIndex = 0;       // PKGIndex
    std::string suffixes;     // the ES column: "No", "No|ES", "No|ES|T", "ES"
    std::string conditions;   // the Condition column: "IC", "ICA", "C"
    std::string ascStock;     // ASCStockNum, one field per chip type
    std::string ascLinkable;  // ASCExtTypes, one field per chip type
    int pins = 0;
    std::vector<std::string> grades;  // as written in SPEEDS ("6", "7/C", "3/I")
};

struct DevicePlan {
    std::string name;
    int ascMaxNum = 0;
    std::string defaultSynthesis;
    int icfEnable = 0;
    int bitOff = 0;
    int logicCells = 0;  // scales the resource figures
    std::vector<PackagePlan> packages;
};

// One record of an ordered family's part list.
struct OrderedPart {
    std::string name, device, package, speed, condition, suffix;
    std::string status, ascMaxNum, shipping;
};

struct FamilyPlan {
    FamilyKind kind = FamilyKind::Generated;
    std::string pm;
    std::vector<std::string> familyNames;
    bool binaryPartData = false;
    std::vector<DevicePlan> devices;  // in DEVICES order (not name order)
    // Short codes per package, in PKG_ALIAS order.
    std::vector<std::pair<std::string, std::vector<std::string>>> packageAliases;

    std::vector<std::string> partExceptions;
    std::vector<std::string> deviceExceptions;
    std::vector<std::pair<std::string, std::string>> packageExceptions;

    // Listed kind: part name -> Status and, for some, DefSynthesis.
    std::vector<std::pair<std::string, std::vector<std::string>>> listedParts;
    // Ordered kind.
    std::vector<OrderedPart> orderedParts;

    // The short package code of `package` for a device package row.
    std::string shortPackage(const PackagePlan& package) const;
};

// The grade without its condition flags: "7/C" -> "7".
std::string gradeName(const std::string& written);

}  // namespace tarn::vyxpn::gen
