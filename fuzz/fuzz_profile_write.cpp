// SPDX-License-Identifier: MIT
// WritePrivateProfileString on a fuzzed file.
//
// Input: three lines naming the section, the key and the value, then the
// file. A key or value line reading "<null>" passes a null pointer (delete the
// section, delete the key).
//
// Beyond "no crash": on a plain file (printable text, short lines, every
// bracketed line closed), a written plain entry reads back as written.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <tuple>

#include "devctrl/util/profile.h"
#include "support/fuzz_support.h"

namespace {

bool isPlainName(const std::string& text) {
    return !text.empty() && text.size() <= 64 &&
           std::all_of(text.begin(), text.end(),
                       [](unsigned char c) { return std::isalnum(c) || c == '_'; });
}

// Text without the corners where the format's rules for odd lines (cut long
// lines, unclosed headers, lone carriage returns) decide what a write keeps.
bool isPlainFile(const std::string& text) {
    for (const std::string& line : devctrl_fuzz::splitLines(text, text.size() + 1)) {
        if (line.size() > 200 || (!line.empty() && line[0] == '[' && line.back() != ']') ||
            !std::all_of(line.begin(), line.end(), [](unsigned char c) { return std::isprint(c); }))
            return false;
    }
    return true;
}

const char* orNull(const std::string& text) {
    return text == "<null>" ? nullptr : text.c_str();
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = nullptr;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> parts = devctrl_fuzz::splitLines(devctrl_fuzz::asText(data, size), 4);
    if (parts.size() < 4)
        return 0;
    const auto& [section, key, value, content] = std::tie(parts[0], parts[1], parts[2], parts[3]);

    std::string path = devctrl_fuzz::writeScratchFile("write.ini", content);
    int written =
        WritePrivateProfileString(section.c_str(), orNull(key), orNull(value), path.c_str());

    if (written && isPlainName(section) && isPlainName(key) && isPlainName(value) &&
        isPlainFile(content)) {
        char readBack[1024] = {};
        GetPrivateProfileString(section.c_str(), key.c_str(), "", readBack, sizeof readBack,
                                path.c_str());
        if (value != readBack)
            std::abort();
    }

    // Into a file that does not exist yet.
    devctrl_fuzz::removeScratchFile("fresh.ini");
    WritePrivateProfileString(section.c_str(), orNull(key), orNull(value),
                              (devctrl_fuzz::scratchDir() + "/fresh.ini").c_str());
    return 0;
}
