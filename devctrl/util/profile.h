// SPDX-License-Identifier: MIT
#pragma once
// INI files in the classic profile-string style. The caller owns every
// buffer; lists come back NUL-separated and end with a double NUL.

#include <stddef.h>
#include <stdio.h>

#include "devctrl/util/export.h"

#ifdef __cplusplus
extern "C" {
#endif

DEVCTRL_API unsigned int GetPrivateProfileString(const char* section, const char* key,
                                                 const char* defaultValue, char* buffer,
                                                 unsigned int size, const char* path);
DEVCTRL_API int GetPrivateProfileInt(const char* section, const char* key, int defaultValue,
                                     const char* path);
DEVCTRL_API unsigned int GetPrivateProfileSection(const char* section, char* buffer,
                                                  unsigned int size, const char* path);
DEVCTRL_API int WritePrivateProfileString(const char* section, const char* key, const char* value,
                                          const char* path);

DEVCTRL_API void rmlead(char* str);
DEVCTRL_API void rmtrail(char* str);
DEVCTRL_API int rmquotes(char* str);
DEVCTRL_API int rmbrackets(char* str);
DEVCTRL_API char* stptok(const char* s, char* tok, size_t toklen, const char* brk);
DEVCTRL_API int filecopy(FILE* dest, FILE* source);

#ifdef __cplusplus
}
#endif
