// SPDX-License-Identifier: MIT
// Setting and deleting keys and sections of an INI file. Every write rewrites
// the whole file line by line (each line trimmed) into new content that the
// file writer puts in place, under a lock shared by the file's writers.

#include "devctrl/util/profile_write.h"

#include <ctype.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <utility>

#include "devctrl/util/profile.h"
#include "devctrl/util/profile_lines.h"
#include "devctrl/util/profile_lock.h"
#include "devctrl/util/quote.h"
#include "platform/data_file.h"
#include "platform/file_writer.h"

namespace {

using namespace tarn::vyxpn::util::profile;

// Copies `in` to `out` with the one change asked for; returns 1 when the work
// counts as done. A null key deletes the section, a null value the key.
//
// Kept as it has always behaved: the result is 1 only when the change was
// made inside the section (the section was left at a following header, or
// the key was found) or a new key was appended at the end, so deleting a key
// or section that is last in the file gives 0 even though the file changed.
// Headers without a closing "]" met before the section vanish; comments are
// always kept, also those of a deleted section.
int rewrite(FILE* in, FILE* out, const char* section, const char* key, const char* value) {
    int result = 0;
    bool found = false;
    bool done = false;
    char line[kLineSize];
    char name[kLineSize];
    char lineKey[kLineSize] = "";
    while (readLine(in, line)) {
        trimLine(line);
        LineKind kind = kindOf(line);
        if (done || kind == LineKind::Comment) {
            fprintf(out, "%s\n", line);
            continue;
        }
        if (!found) {
            if (kind == LineKind::Header) {
                if (!headerName(line, name))
                    continue;
                if (strcasecmp(name, section) == 0) {
                    found = true;
                    if (key)
                        fprintf(out, "%s\n", line);
                    continue;
                }
            }
            fprintf(out, "%s\n", line);
            continue;
        }
        if (kind == LineKind::Header) {
            // A new key goes last in its section, after any blank lines.
            if (key && value)
                fprintf(out, "%s=%s\n", key, value);
            fprintf(out, "%s\n", line);
            done = true;
            result = 1;
            continue;
        }
        if (!key)
            continue;  // deleting the section
        entryKey(line, lineKey);
        if (strcasecmp(lineKey, key) != 0) {
            fprintf(out, "%s\n", line);
            continue;
        }
        if (value)
            fprintf(out, "%s=%s\n", key, value);
        done = true;
        result = 1;
    }
    if (!found && key)
        fprintf(out, "[%s]\n", section);
    if (!done && key && value) {
        fprintf(out, "%s=%s\n", key, value);
        result = 1;
    }
    return result;
}

// Reads the old content (if any) and makes the new one in memory; the file
// is replaced only once the new content is complete.
bool rewriteIntoMemory(FILE* in, std::string& content, int* result, const char* section,
                       const char* key, const char* value) {
    char* buffer = nullptr;
    size_t size = 0;
    FILE* out = open_memstream(&buffer, &size);
    if (!out)
        return false;
    if (in) {
        *result = rewrite(in, out, section, key, value);
    } else {
        fprintf(out, "[%s]\n%s=%s\n", section, key, value);
        *result = 1;
    }
    bool made = fclose(out) == 0;
    if (made)
        content.assign(buffer, size);
    free(buffer);
    return made;
}

bool isBlankByte(char c) {
    return isspace(static_cast<unsigned char>(c)) != 0;
}

bool blankAtAnEnd(const std::string& text) {
    return !text.empty() && (isBlankByte(text.front()) || isBlankByte(text.back()));
}

}  // namespace

namespace tarn::vyxpn::util::profile {

WriteOutcome writeProfileString(const char* section, const char* key, const char* value,
                                const char* path) {
    WriteOutcome outcome;
    if (!section || !path) {
        outcome.error = "cannot write: no section or file given";
        return outcome;
    }
    const std::string target = platform::resolveWriteTarget(path);
    ProfileLock lock(target);

    platform::DataFile old(target);
    if (!old.isOpen() && !(old.missing() && key && value)) {
        // Nothing to change in a file that is not there; anything but a
        // regular file is never read as the old content.
        outcome.error = old.failure();
        return outcome;
    }
    FILE* in = old.releaseAsStream();
    if (old.isOpen() && !in) {
        outcome.error = "cannot read " + tarn::vyxpn::util::escapedForMessage(target);
        return outcome;
    }
    std::string content;
    bool made = rewriteIntoMemory(in, content, &outcome.result, section, key, value);
    if (in)
        fclose(in);
    if (!made) {
        outcome.error =
            "cannot write " + tarn::vyxpn::util::escapedForMessage(path) + ": out of memory";
        return outcome;
    }
    // A failed write leaves the file as it was; the result still tells what
    // the rewrite found.
    outcome.written = platform::writeWholeFile(target, content, &outcome.error);
    return outcome;
}

std::string entryProblem(const std::string& section, const std::string& key,
                         const std::string& value) {
    const std::string limit =
        "longer than the " + std::to_string(kLongestLine) + " characters an INI line may hold";
    for (const auto& [what, text] : {std::pair<const char*, const std::string&>{"section", section},
                                     {"key", key},
                                     {"value", value}}) {
        if (text.find('\0') != std::string::npos)
            return std::string("the ") + what + " must not contain a NUL byte";
        if (text.find_first_of("\n\r") != std::string::npos)
            return std::string("the ") + what + " must not contain a line break";
        if (blankAtAnEnd(text))
            return std::string("the ") + what + " must not begin or end with a blank";
    }
    if (section.size() + 2 > kLongestLine)
        return "the section header would be " + limit;
    if (key.size() + 1 + value.size() > kLongestLine)
        return "the line " + tarn::vyxpn::util::escapedForMessage(key) + "=... would be " + limit;
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        return "the value would read back without its enclosing quotes";
    return std::string();
}

}  // namespace tarn::vyxpn::util::profile

extern "C" int WritePrivateProfileString(const char* section, const char* key, const char* value,
                                         const char* path) {
    return tarn::vyxpn::util::profile::writeProfileString(section, key, value, path).result;
}
