// SPDX-License-Identifier: MIT
#include "devctrl/util/tokenizer.h"

namespace tarn::vyxpn::util {

const std::string Tokenizer::DEFAULT_DELIMITERS = "  ";

Tokenizer::Tokenizer(const std::string& str) : Tokenizer(str, DEFAULT_DELIMITERS) {}

Tokenizer::Tokenizer(const std::string& str, const std::string& delimiters)
    : m_str(str), m_delimiters(delimiters) {}

bool Tokenizer::nextToken() {
    return nextToken(m_delimiters);
}

bool Tokenizer::nextToken(const std::string& delimiters) {
    std::string::size_type start = m_str.find_first_not_of(delimiters, m_pos);
    if (start == std::string::npos) {
        m_pos = m_str.size();
        return false;
    }
    std::string::size_type end = m_str.find_first_of(delimiters, start);
    if (end == std::string::npos) {
        m_token = m_str.substr(start);
        m_pos = m_str.size();
    } else {
        m_token = m_str.substr(start, end - start);
        m_pos = end;
    }
    return true;
}

}  // namespace tarn::vyxpn::util
