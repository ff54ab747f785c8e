// SPDX-License-Identifier: MIT
// The INI readers on a fuzzed file: the section list, each section's key list
// and entries, each value and number, with buffers of exactly the size the
// call is told (so that any write past the end is caught), and the text
// helpers on the file's lines.

#include <memory>

#include "devctrl/util/profile.h"
#include "support/fuzz_support.h"

namespace {

// Every file read is a whole pass over the file; these keep a run fast while
// still reaching the cut and the roomy cases of each call.
constexpr std::size_t kNameLimit = 6;
constexpr unsigned kSizes[] = {1, 2, 5, 1024};
constexpr unsigned kSectionSizes[] = {1, 2, 5, 64, 9000};

// A zeroed buffer of exactly `size` bytes on the heap.
std::unique_ptr<char[]> zeroed(unsigned size) {
    return std::unique_ptr<char[]>(new char[size == 0 ? 1 : size]());
}

// Reads `section` and `key` (null for the lists) into buffers of each of
// kSizes bytes, then into a roomy one whose names (of a list) it returns.
std::vector<std::string> readAtEverySize(const char* section, const char* key, const char* file) {
    for (unsigned small : kSizes)
        GetPrivateProfileString(section, key, "\"quoted default\"", zeroed(small).get(), small,
                                file);
    auto list = zeroed(8192);
    unsigned length = GetPrivateProfileString(section, key, nullptr, list.get(), 8192, file);
    std::vector<std::string> names;
    for (unsigned at = 0; at < length && names.size() < kNameLimit; at += names.back().size() + 1)
        names.emplace_back(list.get() + at);
    return names;
}

void readTextHelpers(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        std::vector<char> copy(line.c_str(), line.c_str() + line.size() + 1);
        rmtrail(copy.data());
        rmlead(copy.data());
        rmquotes(copy.data());
        rmbrackets(copy.data());
        char token[16];
        const char* rest = copy.data();
        for (int steps = 0; rest && steps < 64; ++steps)
            rest = stptok(rest, token, sizeof token, "=,; \t");
    }
}

}  // namespace

const char* const devctrl_fuzz::kDataDir = nullptr;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string path = devctrl_fuzz::writeScratchFile("read.ini", devctrl_fuzz::asText(data, size));
    const char* file = path.c_str();
    std::vector<std::string> sections = readAtEverySize(nullptr, nullptr, file);
    sections.push_back("absent section");
    for (const std::string& section : sections) {
        for (unsigned small : kSectionSizes)
            GetPrivateProfileSection(section.c_str(), zeroed(small).get(), small, file);
        std::vector<std::string> keys = readAtEverySize(section.c_str(), nullptr, file);
        keys.push_back("absent key");
        for (const std::string& key : keys) {
            readAtEverySize(section.c_str(), key.c_str(), file);
            GetPrivateProfileInt(section.c_str(), key.c_str(), -7, file);
        }
    }
    readTextHelpers(devctrl_fuzz::splitLines(devctrl_fuzz::asText(data, size), 64));
    return 0;
}
