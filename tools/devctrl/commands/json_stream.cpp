#include "json_stream.h"

#include <QString>
#include <algorithm>

namespace devctrl_tool {

void writeJsonString(std::ostream& out, const std::string& text) {
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const std::string utf8 = ascii ? text : QString::fromStdString(text).toStdString();
    static const char* hex = "0123456789abcdef";
    out << '"';
    for (char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            out << '\\' << c;
        else if (byte < 0x20)
            out << "\\u00" << hex[byte >> 4] << hex[byte & 0xf];
        else
            out << c;
    }
    out << '"';
}

void writeJsonList(std::ostream& out, const std::vector<std::string>& list) {
    out << '[';
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i)
            out << ", ";
        writeJsonString(out, list[i]);
    }
    out << ']';
}

}  // namespace devctrl_tool
