// WritePrivateProfileString on a fuzzed file.
//
// Input: three lines naming the section, the key and the value, then the
// file. A key or value line reading "<null>" passes a null pointer (delete the
// section, delete the key).
//
// Beyond "no crash": on a plain file (printable text, short lines, every
// bracketed line closed), a written plain entry reads back as written.

#include <cctype>
#include <cstdlib>

#include "devctrl/util/profile.h"
#include "support/fuzz_support.h"

namespace {

bool isPlainName(const std::string& text) {
    if (text.empty() || text.size() > 64)
        return false;
    for (unsigned char c : text)
        if (!std::isalnum(c) && c != '_')
            return false;
    return true;
}

// Text without the corners where the format's rules for odd lines (cut long
// lines, unclosed headers, lone carriage returns) decide what a write keeps.
bool isPlainFile(const std::string& text) {
    std::size_t lineLength = 0;
    bool lineStartsWithBracket = false;
    char last = '\n';
    for (char c : text) {
        if (c == '\n') {
            if (lineStartsWithBracket && last != ']')
                return false;
            lineLength = 0;
            lineStartsWithBracket = false;
        } else {
            if (!std::isprint(static_cast<unsigned char>(c)) || ++lineLength > 200)
                return false;
            if (lineLength == 1 && c == '[')
                lineStartsWithBracket = true;
        }
        last = c;
    }
    return !lineStartsWithBracket || last == ']';
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
    const std::string& section = parts[0];
    const std::string& key = parts[1];
    const std::string& value = parts[2];
    const std::string& content = parts[3];

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
    std::string fresh = devctrl_fuzz::scratchDir() + "/fresh.ini";
    WritePrivateProfileString(section.c_str(), orNull(key), orNull(value), fresh.c_str());
    return 0;
}
