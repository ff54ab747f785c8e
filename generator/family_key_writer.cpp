// SPDX-License-Identifier: MIT
#include "generator/family_files_writer.h"
#include "generator/keyed_file_writer.h"

namespace tarn::vyxpn::gen {

void writeFamilyKey(const FamilyPlan& plan, const std::string& directory) {
    KeyedFileWriter out(directory + "/family.key");
    out.comment("Part-model key data of the generated family " + plan.familyNames.front() +
                " (PM " + plan.pm + ").");
    out.list("FAMILY", plan.familyNames);
    std::vector<std::string> devices;
    for (const DevicePlan& device : plan.devices)
        devices.push_back(device.name);
    out.list("DEVICES", devices);
    out.blank();

    out.beginRecords("PACKAGES");
    for (const DevicePlan& device : plan.devices) {
        std::vector<std::string> fields{device.name};
        for (const PackagePlan& package : device.packages)
            fields.push_back(package.name);
        out.record(fields);
    }
    out.endRecords();
    out.blank();

    out.comment("A grade with /C is commercial only, /I industrial only.");
    out.beginRecords("SPEEDS");
    for (const DevicePlan& device : plan.devices)
        for (const PackagePlan& package : device.packages) {
            std::vector<std::string> fields{device.name, package.name};
            fields.insert(fields.end(), package.grades.begin(), package.grades.end());
            out.record(fields);
        }
    out.endRecords();
    out.close();
}

}  // namespace tarn::vyxpn::gen
