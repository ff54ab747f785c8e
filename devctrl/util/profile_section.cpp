// SPDX-License-Identifier: MIT
// A whole section as "key=value" entries, NUL-separated, ending in a double
// NUL. Built from the key list and one lookup per key.

#include <string.h>

#include "devctrl/util/profile.h"

namespace {
constexpr unsigned kKeyListSize = 8192;
constexpr unsigned kValueSize = 1024;
}  // namespace

extern "C" unsigned int GetPrivateProfileSection(const char* section, char* buffer,
                                                 unsigned int size, const char* path) {
    if (size == 0 || !buffer)
        return 0;
    buffer[0] = '\0';
    if (!section)
        return 0;

    static_assert(kKeyListSize >= 2, "the key list needs room for its double NUL");
    char keys[kKeyListSize] = {};
    if (GetPrivateProfileString(section, nullptr, "", keys, kKeyListSize, path) == 0 || !keys[0])
        return 0;
    if (size < 2)
        return 0;

    const size_t limit = size - 2;
    size_t written = 0;
    // Closes the list after a cut entry; the result is then always size - 2
    // or the count up to the cut.
    auto closeAt = [&](size_t end) {
        buffer[end] = '\0';
        buffer[end + 1] = '\0';
        return static_cast<unsigned>(end);
    };

    for (const char* key = keys; *key; key += strlen(key) + 1) {
        size_t keyLength = strlen(key);
        if (written + keyLength >= limit) {
            memcpy(buffer + written, key, size - written - 2);
            return closeAt(size - 2);
        }
        memcpy(buffer + written, key, keyLength);
        written += keyLength;
        if (written + 1 >= limit) {
            buffer[written++] = '=';
            return closeAt(written);
        }
        buffer[written++] = '=';

        char value[kValueSize] = {};
        GetPrivateProfileString(section, key, "", value, kValueSize, path);
        size_t valueLength = strlen(value);
        // An empty value still takes one place, so it needs that room too;
        // without it the entry's NUL would land past the limit and the next
        // key would find less than no room left.
        size_t valueRoom = valueLength == 0 ? 1 : valueLength;
        if (written + valueRoom >= limit) {
            memcpy(buffer + written, value, size - written - 2);
            return closeAt(size - 2);
        }
        memcpy(buffer + written, value, valueLength);
        written += valueLength;
        // An empty value still takes one place after "="; it is written as
        // NUL so that unzeroed buffers read the same as zeroed ones.
        if (valueLength == 0)
            buffer[written++] = '\0';
        buffer[written++] = '\0';
        buffer[written] = '\0';  // provisional end of the list
    }
    return static_cast<unsigned>(written);
}
