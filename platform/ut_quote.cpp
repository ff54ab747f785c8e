// SPDX-License-Identifier: MIT
#include "platform/ut_quote.h"

namespace tarn::vyxpn::util {

namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

void appendHex(std::string& out, const char* prefix, unsigned char byte) {
    out += prefix;
    out += kHexDigits[byte >> 4];
    out += kHexDigits[byte & 0xf];
}

void appendEscaped(std::string& out, std::string_view value, bool escapeQuote) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto byte = static_cast<unsigned char>(value[i]);
        // U+0080..U+009F are control characters too (CSI among them) for a
        // terminal that reads UTF-8.
        if (byte == 0xc2 && i + 1 < value.size()) {
            const auto next = static_cast<unsigned char>(value[i + 1]);
            if (next >= 0x80 && next <= 0x9f) {
                appendHex(out, "\\u00", next);
                ++i;
                continue;
            }
        }
        switch (byte) {
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\'':
                out += escapeQuote ? "\\'" : "'";
                break;
            default:
                if (byte < 0x20 || byte == 0x7f)
                    appendHex(out, "\\x", byte);
                else
                    out += static_cast<char>(byte);
        }
    }
}

}  // namespace

std::string escapedForMessage(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    appendEscaped(out, value, false);
    return out;
}

std::string quotedForMessage(std::string_view value) {
    std::string out;
    out.reserve(value.size() + 2);
    out += '\'';
    appendEscaped(out, value, true);
    out += '\'';
    return out;
}

}  // namespace tarn::vyxpn::util
