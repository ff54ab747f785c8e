// SPDX-License-Identifier: MIT
#pragma once
// Turns the library's exceptions into the package's Python exceptions.

#include <pybind11/pybind11.h>

namespace devctrl_py {

// Installs the translator; the exception classes live in devctrl._errors.
void registerErrorTranslation();

}  // namespace devctrl_py
