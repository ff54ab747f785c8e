// SPDX-License-Identifier: MIT
#include "devctrl/util/string_utils.h"

#include <cctype>

#include "devctrl/util/tokenizer.h"
#include "platform/pm_text.h"

namespace tarn::vyxpn::util {

std::string toLower(const std::string& text) {
    std::string result = text;
    for (char& c : result)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

std::string toUpper(const std::string& text) {
    std::string result = text;
    for (char& c : result)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return result;
}

std::string trim(const std::string& text) {
    return std::string(trimmed(text, kBlanksAndLineEnds));
}

std::vector<std::string> split(const std::string& text, const std::string& delimiters) {
    std::vector<std::string> tokens;
    Tokenizer tokenizer(text, delimiters);
    while (tokenizer.nextToken())
        tokens.push_back(tokenizer.getToken());
    return tokens;
}

int indexOf(const std::vector<std::string>& list, const std::string& value) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i] == value)
            return static_cast<int>(i);
    return -1;
}

}  // namespace tarn::vyxpn::util
