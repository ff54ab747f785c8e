#include "platform/pd_util.h"

#include <strings.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "platform/base_settings.h"
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
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path, "rb"), &std::fclose);
    if (!file)
        return false;
    unsigned char head[PD_BIN_MAGIC_SIZE];
    if (std::fread(head, 1, sizeof head, file.get()) != sizeof head)
        return false;
    return std::memcmp(head, PD_BIN_MAGIC, sizeof head) == 0;
}

bool PD_UTIL::ReadWholeFile(const char* path, std::string& bytes, std::size_t maxSize) {
    bytes.clear();
    if (!path)
        return false;
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path, "rb"), &std::fclose);
    if (!file)
        return false;
    struct stat info {};
    if (::fstat(fileno(file.get()), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    char chunk[65536];
    std::size_t got;
    while ((got = std::fread(chunk, 1, sizeof chunk, file.get())) > 0) {
        // The size from fstat is only a hint; a growing file is cut off here.
        if (got > maxSize - bytes.size()) {
            bytes.clear();
            return false;
        }
        bytes.append(chunk, got);
    }
    return !std::ferror(file.get());
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
