// Stands in for the Darwin header of this name: what libc++'s headers name of it, beyond what POSIX has. Only checked,
// never run.
#pragma once
#include <ctype.h>
#include <locale.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <wchar.h>
#include <wctype.h>

typedef uint32_t __uint32_t;

// The bits of a character's kind.
enum : __uint32_t {
    _CTYPE_A = 1u << 8,
    _CTYPE_C = 1u << 9,
    _CTYPE_D = 1u << 10,
    _CTYPE_G = 1u << 11,
    _CTYPE_L = 1u << 12,
    _CTYPE_P = 1u << 13,
    _CTYPE_S = 1u << 14,
    _CTYPE_U = 1u << 15,
    _CTYPE_X = 1u << 16,
    _CTYPE_B = 1u << 17,
    _CTYPE_R = 1u << 18,
};

extern "C" {
int asprintf_l(char** text, locale_t locale, const char* format, ...);
int snprintf_l(char* text, size_t size, locale_t locale, const char* format, ...);
int sscanf_l(const char* text, locale_t locale, const char* format, ...);
long long strtoll_l(const char* text, char** end, int base, locale_t locale);
unsigned long long strtoull_l(const char* text, char** end, int base, locale_t locale);
}
