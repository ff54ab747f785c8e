// SPDX-License-Identifier: MIT
// A whole family load from a fuzzed "family.key" and "device.acd": the
// part-model database, the device table loader and the database builder, then
// the queries a device-selection dialog makes on what was loaded.
//
// Input: up to three files separated by lines reading "@@@": the family's
// "family.key", its "device.acd" and the shared "device.acd" of the data
// directory. An input without a separator serves as both family files.

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "support/fuzz_support.h"

namespace {

using tarn::vyxpn::KeyValueReport;
using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

constexpr const char* kPm = "zr9f00";
// Enough to reach every code path of a query; more only costs time.
constexpr std::size_t kListLimit = 8;
constexpr std::size_t kPartLimit = 32;

void exerciseEnumeration(TarnDeviceMngr& mngr, const std::string& pm) {
    StringList devices;
    mngr.getDevices(pm, devices, true, false);
    for (std::size_t d = 0; d < devices.size() && d < kListLimit; ++d) {
        StringList packages;
        mngr.getPackages(pm, devices[d], packages, false, true);
        for (std::size_t p = 0; p < packages.size() && p < kListLimit; ++p) {
            StringList speeds;
            mngr.getSpeeds(pm, devices[d], packages[p], speeds, true, false);
            for (std::size_t s = 0; s < speeds.size() && s < kListLimit; ++s) {
                StringList conditions;
                mngr.getOperations(pm, devices[d], packages[p], speeds[s], conditions, true, false);
                for (std::size_t c = 0; c < conditions.size() && c < kListLimit; ++c)
                    mngr.getPartName(pm, devices[d], packages[p], speeds[s], conditions[c]);
            }
            KeyValueReport report;
            mngr.calcDeviceData(pm, devices[d], packages[p], report);
        }
    }
}

void exerciseFamily(TarnDeviceMngr& mngr) {
    StringList families;
    mngr.getAllFamilies(families, false, false);
    for (const auto& entry : mngr.getFamilyFiles()) {
        const std::string& pm = entry.first;
        // Each query on its own, so that a designed range error in one does
        // not hide what the others would do.
        devctrl_fuzz::expectOnlyDesignedRangeErrors([&] { exerciseEnumeration(mngr, pm); });
        StringList parts;
        devctrl_fuzz::expectOnlyDesignedRangeErrors(
            [&] { mngr.getAllPartsByPM(pm, parts, true, false); });
        for (std::size_t i = 0; i < parts.size() && i < kPartLimit; ++i)
            devctrl_fuzz::expectOnlyDesignedRangeErrors([&] {
                StringList linked;
                mngr.getSupportedASCs(parts[i], linked);
                linked.push_back(mngr.getDefaultASC());
                devctrl_fuzz::exercisePart(mngr, parts[i], linked);
            });
        StringList custom;
        entry.second->getCustomItems(custom);
        mngr.writeSDS(pm, devctrl_fuzz::scratchDir() + "/written.sds");
    }
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = "data";

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string_view> files =
        devctrl_fuzz::splitAtSeparatorLines(devctrl_fuzz::asText(data, size), "@@@");
    const std::string familyDir = std::string("data/") + kPm;
    devctrl_fuzz::writeScratchFile(familyDir + "/family.key", files[0]);
    devctrl_fuzz::writeScratchFile(familyDir + "/device.acd",
                                   files.size() > 1 ? files[1] : files[0]);
    if (files.size() > 2)
        devctrl_fuzz::writeScratchFile("data/device.acd", files[2]);
    else
        devctrl_fuzz::removeScratchFile("data/device.acd");

    devctrl_fuzz::dropManager();
    TarnDeviceMngr* mngr = nullptr;
    devctrl_fuzz::expectOnlyDesignedRangeErrors([&] { mngr = TarnDeviceMngr::getInstance(); });
    if (mngr)
        exerciseFamily(*mngr);
    devctrl_fuzz::dropManager();
    return 0;
}
