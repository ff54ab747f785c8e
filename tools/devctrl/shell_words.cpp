// SPDX-License-Identifier: MIT
#include "shell_words.h"

namespace devctrl_tool {

namespace {
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
}  // namespace

std::vector<std::string> splitShellWords(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;  // a word has begun, even an empty one ('')
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (isBlank(c)) {
            if (inWord)
                words.push_back(std::move(word));
            word.clear();
            inWord = false;
        } else if (c == '#' && !inWord) {
            break;
        } else if (c == '\'') {
            const std::size_t close = line.find('\'', i + 1);
            if (close == std::string::npos)
                throw std::invalid_argument("a ' is not closed");
            word.append(line, i + 1, close - i - 1);
            i = close;
            inWord = true;
        } else if (c == '"') {
            std::size_t j = i + 1;
            for (; j < line.size() && line[j] != '"'; ++j) {
                if (line[j] == '\\' && j + 1 < line.size() &&
                    std::string("\"\\$`").find(line[j + 1]) != std::string::npos)
                    ++j;
                word += line[j];
            }
            if (j >= line.size())
                throw std::invalid_argument("a \" is not closed");
            i = j;
            inWord = true;
        } else if (c == '\\') {
            if (i + 1 >= line.size())
                throw std::invalid_argument("the line ends in a backslash");
            word += line[++i];
            inWord = true;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord)
        words.push_back(std::move(word));
    return words;
}

}  // namespace devctrl_tool
