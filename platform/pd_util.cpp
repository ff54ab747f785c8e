// SPDX-License-Identifier: MIT
#include "platform/pd_util.h"

#include <strings.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/base_settings.h"
#include "platform/data_file.h"
#include "platform/pd_binary_format.h"

bool PD_UTIL::GetFilenameRTF(char* name, std::size_t size) {
    if (!name || size == 0)
        return false;
    std::size_t length = strnlen(name, size);
    if (length == 0 || length == size)
        return false;  // empty, or not terminated
    std::string fileName(name, length);
    if (fileName.find('/') != std::string::npos)
        return true;
    std::string pm = fileName.substr(0, fileName.rfind('.'));
    if (pm.empty())
        return false;
    std::string path = BaseSystem::getDataPath()
                           .filePath(QString::fromStdString(pm + "/" + fileName))
                           .toLocal8Bit()
                           .toStdString();
    if (path.size() + 1 > size)
        return false;
    std::memcpy(name, path.c_str(), path.size() + 1);
    return true;
}

bool PD_UTIL::GetFilenameRTF(char* name) {
    return GetFilenameRTF(name, kPathBufferSize);
}

bool PD_UTIL::IsBinaryFile(const char* path) {
    if (!path)
        return false;
    tarn::vyxpn::platform::DataFile file(path);
    if (!file.isOpen())
        return false;
    unsigned char head[PD_BIN_MAGIC_SIZE];
    std::size_t got = 0;
    while (got < sizeof head) {
        ssize_t n = ::read(file.fd(), head + got, sizeof head - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        got += static_cast<std::size_t>(n);
    }
    return std::memcmp(head, PD_BIN_MAGIC, sizeof head) == 0;
}

bool PD_UTIL::ReadWholeFile(const char* path, std::string& bytes, std::size_t maxSize) {
    bytes.clear();
    if (!path)
        return false;
    tarn::vyxpn::platform::DataFile file(path);
    return file.readAll(bytes, maxSize);
}

std::string PD_UTIL::Trim(const std::string& text) {
    static const char* const blanks = " \t\r\n";
    auto first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    auto last = text.find_last_not_of(blanks);
    return text.substr(first, last - first + 1);
}

bool PD_UTIL::IsFormatKey(const std::string& key) {
    return strcasecmp(key.c_str(), kFormatSectionName) == 0 && key.size() == 6;
}
