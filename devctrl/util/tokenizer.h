// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "devctrl/util/export.h"

namespace tarn::vyxpn::util {

// Cuts a copy of a text into tokens. Runs of delimiters count as one and a
// token is never empty. The default delimiters are blanks only: tabs and line
// ends stay inside tokens unless a caller asks for them.
class DEVCTRL_API Tokenizer {
  public:
    static const std::string DEFAULT_DELIMITERS;

    explicit Tokenizer(const std::string& str);
    Tokenizer(const std::string& str, const std::string& delimiters);

    bool nextToken();
    // Uses `delimiters` for this call only; the stored set stays.
    bool nextToken(const std::string& delimiters);
    std::string getToken() const { return m_token; }
    void reset() { m_pos = 0; }

    std::string::size_type m_pos = 0;
    std::string m_str;
    std::string m_token;
    std::string m_delimiters;
};

}  // namespace tarn::vyxpn::util
