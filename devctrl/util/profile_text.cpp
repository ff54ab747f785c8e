// Text helpers of the profile functions. They work in place on C strings
// because the profile interface hands out caller-owned buffers.

#include <ctype.h>
#include <string.h>

#include "devctrl/util/profile.h"

namespace {
bool isBlank(char c) {
    return isspace(static_cast<unsigned char>(c)) != 0;
}
}  // namespace

extern "C" {

void rmlead(char* str) {
    if (!str || !*str)
        return;
    const char* start = str;
    while (*start && isBlank(*start))
        ++start;
    if (start != str)
        memmove(str, start, strlen(start) + 1);
}

void rmtrail(char* str) {
    if (!str || !*str)
        return;
    size_t length = strlen(str);
    if (length == 1) {
        if (isBlank(str[0]))
            str[0] = '\0';
        return;
    }
    // The walk never looks at the first character: an all-blank text keeps
    // one blank. Callers follow with rmlead, which removes it.
    size_t last = length - 1;
    while (last > 0 && isBlank(str[last]))
        --last;
    str[last + 1] = '\0';
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
