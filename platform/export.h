// SPDX-License-Identifier: MIT
#pragma once
// Marks what the shared library exports. The library is built with hidden
// visibility, so a class or function a host may use says so here; the rest
// stays private to the library and free to change.

#if defined(__GNUC__) || defined(__clang__)
#define DEVCTRL_API __attribute__((visibility("default")))
#else
#define DEVCTRL_API
#endif
