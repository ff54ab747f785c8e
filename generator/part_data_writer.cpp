// SPDX-License-Identifier: MIT
#include <fstream>
#include <stdexcept>

#include "generator/family_files_writer.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"

namespace tarn::vyxpn::gen {

namespace {

// One row per device and package. The columns come in another order than
// RESOURCE_ITMES, plus a PLL column nobody asks for: readers go by name.
std::string partDataText(const FamilyPlan& plan) {
    std::string text = "# Resource figures of " + plan.familyNames.front() +
                       ", one row per device and package.\n[[Device Info]]\n"
                       "Format = IO, LUT, FF, DSP, EBR, PLL\n";
    for (const DevicePlan& device : plan.devices) {
        const int lut = device.logicCells;
        for (const PackagePlan& package : device.packages) {
            const int io = std::min(package.pins * 3 / 4, 40 + lut / 500);
            text += device.name + "_" + package.name + " = " + std::to_string(io) + ", " +
                    std::to_string(lut) + ", " + std::to_string(lut * 2) + ", " +
                    std::to_string(lut / 1200 + 1) + ", " + std::to_string(lut / 500 + 2) + ", " +
                    std::to_string(lut > 100000 ? 8 : 4) + "\n";
        }
    }
    return text;
}

}  // namespace

void writePartData(const FamilyPlan& plan, const std::string& directory) {
    const std::string path = directory + "/" + plan.pm + ".pwd";
    const std::string text = partDataText(plan);
    if (plan.binaryPartData) {
        PD_DATA data;
        if (!data.LoadTxtString(text, path.c_str()) || !PD_SaveBinFile(data, path.c_str()))
            throw std::runtime_error("cannot write " + path);
        return;
    }
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path);
}

}  // namespace tarn::vyxpn::gen
