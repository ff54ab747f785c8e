// SPDX-License-Identifier: MIT
// Reading values, key lists and section lists from INI files.

#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <cstdint>

#include "devctrl/util/profile.h"
#include "devctrl/util/profile_lines.h"
#include "platform/data_file.h"

namespace {

using namespace tarn::vyxpn::util::profile;

// Reads the next line worth examining: raw empty lines are skipped before
// trimming, everything else comes back trimmed.
bool nextLine(FILE* file, char* line) {
    while (readLine(file, line)) {
        if (line[0] == '\n')
            continue;
        trimLine(line);
        return true;
    }
    return false;
}

// Fills a caller's buffer with NUL-separated names ending in a double NUL.
// When a name does not fit with its NUL and the final NUL, as much of it as
// leaves room for both is kept and the list is closed.
class NameList {
  public:
    NameList(char* buffer, unsigned size) : m_buffer(buffer), m_size(size) {}

    // False once the list is full and closed.
    bool add(const char* name) {
        size_t length = strlen(name);
        if (m_size < 2) {
            m_full = true;
            return false;
        }
        if (m_length + length + 2 >= m_size) {
            size_t room = m_size - m_length - 2;
            memcpy(m_buffer + m_length, name, room);
            m_buffer[m_size - 2] = '\0';
            m_buffer[m_size - 1] = '\0';
            m_length = m_size - 2;
            m_full = true;
            return false;
        }
        memcpy(m_buffer + m_length, name, length + 1);
        m_length += length + 1;
        return true;
    }

    // The count of characters stored up to the last name's end: neither the
    // last name's NUL nor the final NUL counts ("A", NUL, "B", NUL, NUL gives
    // 3). A cut list, closed at size - 2, reads the same way.
    unsigned finish() {
        if (m_full)
            return static_cast<unsigned>(m_length);
        m_buffer[m_length] = '\0';
        return m_length > 0 ? static_cast<unsigned>(m_length - 1) : 0;
    }

  private:
    char* m_buffer;
    size_t m_size;
    size_t m_length = 0;
    bool m_full = false;
};

unsigned listSections(FILE* file, char* buffer, unsigned size) {
    NameList names(buffer, size);
    char line[kLineSize];
    char name[kLineSize];
    while (nextLine(file, line)) {
        if (kindOf(line) != LineKind::Header || !headerName(line, name))
            continue;
        if (!names.add(name))
            break;
    }
    return names.finish();
}

// Moves past the first header named `section`; false when there is none.
bool enterSection(FILE* file, const char* section) {
    char line[kLineSize];
    char name[kLineSize];
    while (nextLine(file, line)) {
        if (kindOf(line) == LineKind::Header && headerName(line, name) &&
            strcasecmp(name, section) == 0)
            return true;
    }
    return false;
}

// Reads the next entry line of the current section into `line`; false at
// the next header or the end of the file.
bool nextEntry(FILE* file, char* line) {
    while (nextLine(file, line)) {
        LineKind kind = kindOf(line);
        if (kind == LineKind::Header)
            return false;
        if (kind == LineKind::Entry)
            return true;
    }
    return false;
}

// Key list of the current section; the count as for names. `any` tells a
// section without entries from one whose only key is empty (both count 0).
unsigned listKeys(FILE* file, char* buffer, unsigned size, bool* any) {
    NameList keys(buffer, size);
    char line[kLineSize];
    char key[kLineSize] = "";
    *any = false;
    while (nextEntry(file, line)) {
        *any = true;
        entryKey(line, key);
        if (!keys.add(key))
            break;
    }
    return keys.finish();
}

// Looks `key` up in the current section. On a match with "=", stores the
// value (trimmed, one pair of quotes removed) and returns true.
bool findValue(FILE* file, const char* key, char* buffer, unsigned size, unsigned* result) {
    char line[kLineSize];
    char lineKey[kLineSize] = "";
    while (nextEntry(file, line)) {
        entryKey(line, lineKey);
        if (strcasecmp(lineKey, key) != 0)
            continue;
        const char* equals = strchr(line, '=');
        if (!equals)
            return false;
        char value[kLineSize];
        strcpy(value, equals + 1);
        rmtrail(value);
        rmlead(value);
        rmquotes(value);
        size_t length = strlen(value);
        if (length >= size) {
            // Cut to the buffer; the last byte is kept free for a terminator
            // so that callers with an unzeroed buffer get a string too.
            memcpy(buffer, value, size - 1);
            buffer[size - 1] = '\0';
            *result = size - 1;
        } else {
            memcpy(buffer, value, length + 1);
            *result = static_cast<unsigned>(length);
        }
        return true;
    }
    return false;
}

unsigned useDefault(const char* defaultValue, char* buffer, unsigned size) {
    if (!defaultValue) {
        buffer[0] = '\0';
        return 0;
    }
    strncpy(buffer, defaultValue, size);
    buffer[size - 1] = '\0';
    rmtrail(buffer);
    rmlead(buffer);
    rmquotes(buffer);
    return static_cast<unsigned>(strlen(buffer));
}

}  // namespace

extern "C" {

unsigned int GetPrivateProfileString(const char* section, const char* key, const char* defaultValue,
                                     char* buffer, unsigned int size, const char* path) {
    // A zero size leaves no room even for the empty string.
    if (!buffer || !path || size == 0)
        return 0;
    buffer[0] = '\0';
    // A missing file is not the same as a missing key: no default here.
    // Opened without blocking: a FIFO or a device in place of the file reads
    // as a file that cannot be opened.
    FILE* file = tarn::vyxpn::platform::DataFile(path).releaseAsStream();
    if (!file)
        return 0;

    unsigned result = 0;
    if (!section) {
        result = listSections(file, buffer, size);
    } else if (!enterSection(file, section)) {
        result = useDefault(defaultValue, buffer, size);
    } else if (!key) {
        // The default stands in for a section without entries only.
        bool any = false;
        result = listKeys(file, buffer, size, &any);
        if (!any)
            result = useDefault(defaultValue, buffer, size);
    } else if (!findValue(file, key, buffer, size, &result)) {
        result = useDefault(defaultValue, buffer, size);
    }
    fclose(file);
    return result;
}

int GetPrivateProfileInt(const char* section, const char* key, int defaultValue, const char* path) {
    if (!section || !key)
        return defaultValue;
    char value[1024] = "";
    if (GetPrivateProfileString(section, key, "", value, sizeof value, path) == 0)
        return defaultValue;
    int number = static_cast<int>(static_cast<uint32_t>(strtol(value, nullptr, 10)));
    // Text that converts to zero counts as absent unless it is written as
    // zero ("0" or starting "00"): words, "-0" and "0x..." give the default.
    if (value[0] == '0' && (value[1] == '\0' || value[1] == '0'))
        return number;
    return number != 0 ? number : defaultValue;
}

}  // extern "C"
