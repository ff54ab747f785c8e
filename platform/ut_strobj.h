// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "export.h"

// A string held by the part-model library.
class DEVCTRL_API UT_STROBJ {
  public:
    UT_STROBJ() = default;
    explicit UT_STROBJ(std::string text) : m_text(std::move(text)) {}

    const char* getstring(unsigned char /*flags*/ = 0) const { return m_text.c_str(); }
    const std::string& str() const { return m_text; }

  private:
    std::string m_text;
};
