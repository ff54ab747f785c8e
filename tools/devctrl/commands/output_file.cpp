// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "command.h"
#include "platform/file_writer.h"

namespace devctrl_tool {

void writeOutputFile(const std::string& file, std::string_view content) {
    if (isStandardOutput(file)) {
        if (std::fwrite(content.data(), 1, content.size(), stdout) != content.size() ||
            std::fflush(stdout) != 0)
            throw ToolError(std::string("cannot write standard output: ") + std::strerror(errno));
        return;
    }
    std::string error;
    if (!tarn::vyxpn::platform::writeWholeFile(file, content, &error))
        throw ToolError(error);
}

}  // namespace devctrl_tool
