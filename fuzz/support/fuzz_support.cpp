// SPDX-License-Identifier: MIT
#include "fuzz_support.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/data_error.h"
#include "devctrl/sds/sds_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/ut_trace.h"

namespace fs = std::filesystem;

namespace devctrl_fuzz {

bool isDesignedRangeError(const std::out_of_range& error) {
    // Bad data the library locates itself come as DataError; the rest are the
    // texts of vector::at and string::at (stoi, map::at and the like are not
    // designed).
    if (dynamic_cast<const tarn::vyxpn::DataError*>(&error))
        return true;
    const char* what = error.what();
    return std::strncmp(what, "vector::_M_range_check", 22) == 0 ||
           std::strncmp(what, "basic_string::at", 16) == 0;
}

const std::string& scratchDir() {
    static const std::string path = [] {
        std::string pattern = (fs::temp_directory_path() / "devctrl-fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        return pattern;
    }();
    // Registered once `path` is whole, so that it outlives the removal.
    static const bool removedAtExit = std::atexit([] {
                                          std::error_code ignored;
                                          fs::remove_all(scratchDir(), ignored);
                                      }) == 0;
    (void)removedAtExit;
    return path;
}

std::string writeScratchFile(const std::string& relative, std::string_view bytes) {
    fs::path target = fs::path(scratchDir()) / relative;
    std::error_code ignored;
    fs::create_directories(target.parent_path(), ignored);
    std::ofstream(target, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return target.string();
}

void removeScratchFile(const std::string& relative) {
    std::error_code ignored;
    fs::remove(fs::path(scratchDir()) / relative, ignored);
}

std::vector<std::string_view> splitAtSeparatorLines(std::string_view text,
                                                    std::string_view separator) {
    const std::string marker = "\n" + std::string(separator) + "\n";
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(marker, start)) != std::string_view::npos;
         start = found + marker.size())
        parts.push_back(text.substr(start, found + 1 - start));  // keeps its last newline
    parts.push_back(text.substr(start));
    return parts;
}

std::vector<std::string> splitLines(std::string_view text, std::size_t limit) {
    std::vector<std::string> lines;
    for (std::size_t newline;
         lines.size() + 1 < limit && (newline = text.find('\n')) != std::string_view::npos;
         text.remove_prefix(newline + 1))
        lines.emplace_back(text.substr(0, newline));
    lines.emplace_back(text);
    return lines;
}

void exercisePart(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part,
                  const std::vector<std::string>& linked) {
    std::string pm, device, package, speed, condition, inner, newName;
    mngr.getNameByPart(part, pm, device, package, speed, condition);
    mngr.getInnerDeviceName(part, inner);
    mngr.checkDevice(part, newName);
    mngr.getNewFormatDeviceName(part, newName);
    mngr.getItemValue("Status", part, "");
    mngr.enableSynplify(part);
    mngr.enableICF(part);
    mngr.getDefaultSynthesis(part);
    mngr.getASCMaxNum(part);
    tarn::vyxpn::TarnDeviceObj dev(part);
    dev.m_ascList = linked;
    dev.toString(false);
    std::string message;
    mngr.isValid(dev, message);
    tarn::vyxpn::KeyValueReport report;
    mngr.calcDeviceData(dev, report);
}

void readIntoFamilies(std::string_view bytes, bool asPmFile,
                      const std::vector<std::string>& requested) {
    const std::string path = asPmFile ? writeScratchFile("data/zr9f00/zr9f00.pwd", bytes)
                                      : writeScratchFile("selfcontained.pwd", bytes);
    volatile std::size_t sink = 0;
    for (bool filled : {true, false}) {
        tarn::vyxpn::TarnSDSFile family("zr9f00", nullptr);
        auto& section = family.m_packageSection;
        if (filled) {
            section.m_items = {"PKGIndex", "Status"};
            section.m_datas["ZR4_QF48"] = {"0", "P"};
            section.m_datas["ZR4_BG100"] = {"1"};
            section.m_datas["ZR12_BG100"] = {"0", "E"};
        }
        if (asPmFile)
            family.loadPWD_Bin("zr9f00", nullptr, requested);
        else
            family.loadPWD(path, requested);
        for (const std::string& item : section.m_items)
            sink = sink + item.size();
        for (const auto& [key, row] : section.m_datas)
            for (const std::string& cell : row)
                sink = sink + key.size() + cell.size();
    }
}

void checkBinaryRoundTrip(const PD_DATA& data) {
    std::string bytes, bytesAgain, error;
    if (!PD_EncodeBinary(data, bytes))
        return;
    PD_DATA decoded;
    if (!PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                         decoded, &error) ||
        !PD_EncodeBinary(decoded, bytesAgain) || bytesAgain != bytes)
        std::abort();
}

}  // namespace devctrl_fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace devctrl_fuzz;
    setDiagTraceHandler([](const char*, const char*) {});
    if (kDataDir) {
        const std::string path = kDataDir[0] == '/' ? kDataDir : scratchDir() + "/" + kDataDir;
        setenv("DEVCTRL_DATA_DIR", path.c_str(), 1);
        setenv("DEVCTRL_SETTINGS", (scratchDir() + "/settings.ini").c_str(), 1);
        unsetenv("TARN_SHOW_ALL_DEVICES");
    }
    return 0;
}
