// Setting and deleting keys and sections of an INI file. Every write rewrites
// the whole file line by line (each line trimmed) into a replacement that is
// renamed over it, under a lock shared by the writers of its directory.

#include <errno.h>
#include <string.h>
#include <strings.h>

#include "devctrl/util/profile.h"
#include "devctrl/util/profile_lines.h"
#include "devctrl/util/profile_replace.h"

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

int createFile(const std::string& target, const DirectoryLock& lock, const char* section,
               const char* key, const char* value) {
    FileReplacement created(target, nullptr);
    if (!created.file())
        return 0;
    fprintf(created.file(), "[%s]\n", section);
    fprintf(created.file(), "%s=%s\n", key, value);
    return created.commit(lock.fd()) ? 1 : 0;
}

}  // namespace

extern "C" int WritePrivateProfileString(const char* section, const char* key, const char* value,
                                         const char* path) {
    if (!section || !path)
        return 0;
    const std::string target = resolveTarget(path);
    DirectoryLock lock(directoryOf(target));

    // Opened for update although it is only read: a file we may not write is
    // left alone.
    FILE* in = fopen(target.c_str(), "r+");
    if (!in) {
        if (key && value && errno == ENOENT)
            return createFile(target, lock, section, key, value);
        return 0;
    }
    struct stat original {};
    if (fstat(fileno(in), &original) != 0) {
        fclose(in);
        return 0;
    }
    FileReplacement replacement(target, &original);
    if (!replacement.file()) {
        fclose(in);
        return 0;
    }
    int result = rewrite(in, replacement.file(), section, key, value);
    fclose(in);
    // A failed replacement leaves the file as it was; the result still tells
    // what the rewrite found.
    replacement.commit(lock.fd());
    return result;
}
