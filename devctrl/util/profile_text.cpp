// SPDX-License-Identifier: MIT
// Text helpers of the profile functions. They work in place on C strings
// because the profile interface hands out caller-owned buffers.

#include <string.h>
#include <string_view>

#include "devctrl/util/profile.h"
#include "platform/pm_text.h"

using tarn::vyxpn::util::kWhiteSpace;
using tarn::vyxpn::util::TrimEnds;
using tarn::vyxpn::util::trimmed;

extern "C" {

void rmlead(char* str) {
    if (!str || !*str)
        return;
    const std::string_view text(str);
    const std::string_view kept = trimmed(text, kWhiteSpace, TrimEnds::Leading);
    if (kept.size() != text.size())
        memmove(str, kept.data(), kept.size() + 1);
}

void rmtrail(char* str) {
    if (!str || !*str)
        return;
    const std::string_view text(str);
    if (text.size() == 1) {
        str[trimmed(text, kWhiteSpace, TrimEnds::Trailing).size()] = '\0';
        return;
    }
    // The trim never looks at the first character: an all-blank text keeps
    // one blank. Callers follow with rmlead, which removes it.
    str[1 + trimmed(text.substr(1), kWhiteSpace, TrimEnds::Trailing).size()] = '\0';
}

int rmquotes(char* str) {
    if (!str)
        return 0;
    size_t length = strlen(str);
    if (length < 2)
        return 0;
    char quote = str[0];
    if ((quote != '\'' && quote != '"') || str[length - 1] != quote)
        return 0;
    memmove(str, str + 1, length - 2);
    str[length - 2] = '\0';
    return 1;
}

int rmbrackets(char* str) {
    if (!str)
        return 0;
    size_t length = strlen(str);
    if (length < 2 || str[0] != '[' || str[length - 1] != ']')
        return 0;
    memmove(str, str + 1, length - 2);
    str[length - 2] = '\0';
    return 1;
}

char* stptok(const char* s, char* tok, size_t toklen, const char* brk) {
    if (!s || !tok || !brk || !*s)
        return nullptr;
    if (toklen <= 1) {
        *tok = '\0';
        return const_cast<char*>(s);
    }
    size_t copied = 0;
    // A full token wins over a delimiter that follows it: the rest then
    // starts at that delimiter.
    while (copied < toklen - 1 && *s && !strchr(brk, *s))
        tok[copied++] = *s++;
    tok[copied] = '\0';
    if (copied < toklen - 1 && *s) {
        while (*s && strchr(brk, *s))
            ++s;
    }
    return *s ? const_cast<char*>(s) : nullptr;
}

int filecopy(FILE* dest, FILE* source) {
    if (!dest || !source)
        return 0;
    char block[512];
    size_t count;
    while ((count = fread(block, 1, sizeof block, source)) == sizeof block)
        fwrite(block, 1, count, dest);
    return static_cast<int>(fwrite(block, 1, count, dest));
}

}  // extern "C"
