// SPDX-License-Identifier: MIT
#include <vector>

#include "generator/family_files_writer.h"
#include "generator/keyed_file_writer.h"

namespace tarn::vyxpn::gen {

namespace {

const char* methodOf(FamilyKind kind) {
    return kind == FamilyKind::Ordered ? "opn" : "auto";
}

void writeHeader(const FamilyPlan& plan, KeyedFileWriter& out) {
    out.comment("Device table of the generated family " + plan.familyNames.front() + " (PM " +
                plan.pm + ").");
    out.value("PM_ENABLE", plan.kind == FamilyKind::Disabled ? "false" : "true");
    out.value("PART_GENERATE_METHOD", methodOf(plan.kind));
    out.blank();

    out.beginRecords("PKG_ALIAS");
    for (const auto& [package, aliases] : plan.packageAliases) {
        std::vector<std::string> fields{package};
        fields.insert(fields.end(), aliases.begin(), aliases.end());
        out.record(fields);
    }
    out.endRecords();
    out.blank();

    out.comment("IO has no label; the second LUT label is ignored (the first one counts).");
    out.list("RESOURCE_ITMES", {"LUT", "FF", "EBR", "DSP", "IO"});
    out.beginRecords("RESOURCE_LABELS");
    for (const auto& label : std::vector<std::vector<std::string>>{{"LUT", "Logic Cells"},
                                                                   {"FF", "Registers"},
                                                                   {"EBR", "Block RAM"},
                                                                   {"DSP", "Multipliers"},
                                                                   {"LUT", "LUT4s"}})
        out.record(label);
    out.endRecords();
    out.list("ASC_TYPES", ascChipTypes());
    out.blank();
}

void writeExceptions(const FamilyPlan& plan, KeyedFileWriter& out) {
    if (!plan.partExceptions.empty())
        out.list("PART_EXCEPTION", plan.partExceptions);
    if (!plan.deviceExceptions.empty())
        out.list("DEVICE_EXCEPTION", plan.deviceExceptions);
    if (!plan.packageExceptions.empty()) {
        out.beginRecords("PACKAGE_EXCEPTION");
        for (const auto& [device, package] : plan.packageExceptions)
            out.record({device, package});
        out.endRecords();
    }
    out.blank();
}

void writeTables(const FamilyPlan& plan, KeyedFileWriter& out) {
    out.list("PM_ITEMS", {"SynplifyEnable", "PrecisionEnable", "LSTEnable"});
    out.list("PM_DATAS", {"1", plan.kind == FamilyKind::Ordered ? "0" : "1", "0"});
    out.blank();

    out.list("DEVICE_ITEMS", {"ASCMaxNum", "DefSynthesis", "ICFEnable", "BitOff"});
    out.beginRecords("DEVICE_DATAS");
    for (const DevicePlan& device : plan.devices)
        out.record({device.name, std::to_string(device.ascMaxNum), device.defaultSynthesis,
                    std::to_string(device.icfEnable), std::to_string(device.bitOff)});
    out.endRecords();
    out.blank();

    out.comment("Every device and package states every column: the part data columns follow.");
    out.list("PACKAGE_ITEMS",
             {"Status", "PKGIndex", "ES", "Condition", "ASCStockNum", "ASCExtTypes", "Pin Count"});
    out.beginRecords("PACKAGE_DATAS");
    for (const DevicePlan& device : plan.devices)
        for (const PackagePlan& package : device.packages)
            out.record({device.name, package.name, package.status,
                        std::to_string(package.aliasIndex), package.suffixes, package.conditions,
                        package.ascStock, package.ascLinkable, std::to_string(package.pins)});
    out.endRecords();
}

void writeListedParts(const FamilyPlan& plan, KeyedFileWriter& out) {
    out.blank();
    out.comment("Only these parts are built; a record without DefSynthesis keeps the device's.");
    out.list("PART_ITEMS", {"Status", "DefSynthesis"});
    out.beginRecords("PART_DATAS");
    for (const auto& [name, values] : plan.listedParts) {
        std::vector<std::string> fields{name};
        fields.insert(fields.end(), values.begin(), values.end());
        out.record(fields);
    }
    out.endRecords();
}

void writeOrderedParts(const FamilyPlan& plan, KeyedFileWriter& out) {
    out.blank();
    out.comment("part, device, package, speed, condition, suffix, then the PART_ITEMS values.");
    out.list("PART_ITEMS", {"Status", "ASCMaxNum", "Shipping"});
    out.beginRecords("PART_DATAS");
    for (const OrderedPart& part : plan.orderedParts)
        out.record({part.name, part.device, part.package, part.speed, part.condition, part.suffix,
                    part.status, part.ascMaxNum, part.shipping});
    out.endRecords();
}

}  // namespace

const std::vector<std::string>& ascChipTypes() {
    static const std::vector<std::string> types{"QSC1", "QSC2", "QSC4"};
    return types;
}

void writeDeviceTable(const FamilyPlan& plan, const std::string& directory) {
    KeyedFileWriter out(directory + "/device.acd");
    writeHeader(plan, out);
    writeExceptions(plan, out);
    writeTables(plan, out);
    if (plan.kind == FamilyKind::Listed)
        writeListedParts(plan, out);
    if (plan.kind == FamilyKind::Ordered)
        writeOrderedParts(plan, out);
    out.close();
}

}  // namespace tarn::vyxpn::gen
