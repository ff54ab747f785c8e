// SPDX-License-Identifier: MIT
#include "devctrl/util/profile_lines.h"

#include <string.h>

#include "devctrl/util/profile.h"
#include "platform/pm_text.h"

namespace tarn::vyxpn::util::profile {

bool readLine(FILE* file, char* line) {
    return fgets(line, static_cast<int>(kLineSize), file) != nullptr;
}

void trimLine(char* line) {
    const std::string_view kept = trimmed(line, kWhiteSpace);
    memmove(line, kept.data(), kept.size());
    line[kept.size()] = '\0';
}

LineKind kindOf(const char* line) {
    if (line[0] == ';')
        return LineKind::Comment;
    if (line[0] == '[')
        return LineKind::Header;
    return LineKind::Entry;
}

bool headerName(const char* line, char* name) {
    strcpy(name, line);
    return rmbrackets(name) != 0;
}

void entryKey(const char* line, char* key) {
    // stptok leaves the key untouched for an empty line; that is relied on.
    stptok(line, key, kLineSize, "=");
    rmtrail(key);
}

}  // namespace tarn::vyxpn::util::profile
