#pragma once
// INI files in the classic profile-string style. The caller owns every
// buffer; lists come back NUL-separated and end with a double NUL.

#include <stddef.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

unsigned int GetPrivateProfileString(const char* section, const char* key, const char* defaultValue,
                                     char* buffer, unsigned int size, const char* path);
int GetPrivateProfileInt(const char* section, const char* key, int defaultValue, const char* path);
unsigned int GetPrivateProfileSection(const char* section, char* buffer, unsigned int size,
                                      const char* path);
int WritePrivateProfileString(const char* section, const char* key, const char* value,
                              const char* path);

void rmlead(char* str);
void rmtrail(char* str);
int rmquotes(char* str);
int rmbrackets(char* str);
char* stptok(const char* s, char* tok, size_t toklen, const char* brk);
int filecopy(FILE* dest, FILE* source);

#ifdef __cplusplus
}
#endif
