#include "fuzz_support.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "devctrl/mngr/device_mngr.h"
#include "platform/pm_database.h"
#include "platform/ut_trace.h"

namespace fs = std::filesystem;

namespace devctrl_fuzz {

bool isDesignedRangeError(const std::out_of_range& error) {
    // The texts of the standard library's checked accessors (vector::at,
    // string::at); other range errors (stoi, map::at, ...) are not designed.
    const char* what = error.what();
    return std::strncmp(what, "vector::_M_range_check", 22) == 0 ||
           std::strncmp(what, "basic_string::at", 16) == 0;
}

void silenceTraces() {
    setDiagTraceHandler([](const char*, const char*) {});
}

namespace {

void removeScratchDir() {
    std::error_code ignored;
    fs::remove_all(scratchDir(), ignored);
}

}  // namespace

const std::string& scratchDir() {
    static const std::string path = [] {
        std::string pattern = (fs::temp_directory_path() / "devctrl-fuzz-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        return pattern;
    }();
    static const bool cleanupRegistered = [] { return std::atexit(removeScratchDir) == 0; }();
    (void)cleanupRegistered;
    return path;
}

std::string writeScratchFile(const std::string& relative, std::string_view bytes) {
    fs::path target = fs::path(scratchDir()) / relative;
    std::error_code ignored;
    fs::create_directories(target.parent_path(), ignored);
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return target.string();
}

void removeScratchFile(const std::string& relative) {
    std::error_code ignored;
    fs::remove(fs::path(scratchDir()) / relative, ignored);
}

std::vector<std::string_view> splitAtSeparatorLines(const std::uint8_t* data, std::size_t size,
                                                    std::string_view separator) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string marker = "\n" + std::string(separator) + "\n";
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (;;) {
        std::size_t found = text.find(marker, start);
        if (found == std::string_view::npos) {
            parts.push_back(text.substr(start));
            return parts;
        }
        parts.push_back(text.substr(start, found + 1 - start));  // keeps its last newline
        start = found + marker.size();
    }
}

std::vector<std::string> splitLines(const std::uint8_t* data, std::size_t size, std::size_t limit) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> lines;
    while (lines.size() + 1 < limit) {
        std::size_t newline = text.find('\n');
        if (newline == std::string_view::npos)
            break;
        lines.emplace_back(text.substr(0, newline));
        text.remove_prefix(newline + 1);
    }
    lines.emplace_back(text);
    return lines;
}

void dropManager() {
    delete tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    tarn::vyxpn::TarnDeviceMngr::m_pMngr = nullptr;
    delete PM_DATABASE::_database;
    PM_DATABASE::_database = nullptr;
}

}  // namespace devctrl_fuzz
