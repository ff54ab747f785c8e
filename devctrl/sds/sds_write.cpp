// The device-support description of a family for outside design-entry tools,
// and a text dump of every table for diagnosis. Both layouts are compared as
// text by their readers, separators included, so they are kept byte for byte.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "devctrl/sds/sds_file.h"

namespace tarn::vyxpn {

namespace {

std::string join(const std::vector<std::string>& list, const std::string& separator) {
    std::string text;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i)
            text += separator;
        text += list[i];
    }
    return text;
}

// Every element followed by the separator, the last one included.
std::string terminated(const std::vector<std::string>& list, const std::string& separator) {
    std::string text;
    for (const auto& element : list)
        text += element + separator;
    return text;
}

void writeSupportText(const TarnSDSFile& family, std::ostream& out) {
    out << "[Device Support]\nTitle = " << family.m_pm
        << "\nVersion=0,1\nSpeed Grade= _\nDesign Entry Type=Schematic/VHDL, Schematic/Verilog "
           "HDL, EDIF, Pure VHDL, Pure Verilog HDL, Mixed Verilog/VHDL\nDesign Entry Type for "
           "Unix=EDIF\n";
    out << "Format = " << join(family.m_genericDevices.m_items, ",") << "\n\n[Generic Devices]\n";
    for (const auto& [part, values] : family.m_genericDevices.m_datas)
        out << part << " = " << join(values, ", ") << '\n' << std::flush;
    out << "\n[Device Info]\nFormat = " << join(family.m_deviceInfo.m_items, ", ") << '\n';
    for (const auto& [key, values] : family.m_deviceInfo.m_datas)
        out << key << " = " << join(values, ", ") << '\n' << std::flush;
    out << '\n';
}

// Creates an empty file beside `target` that no one else uses, with the
// permissions a new file would get (or those of the file it will replace).
std::string reserveTemporaryBeside(const std::string& target) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string candidate =
            target + ".tmp-" + std::to_string(getpid()) + "-" + std::to_string(attempt);
        int fd = open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0) {
            if (errno == EEXIST)
                continue;
            return std::string();
        }
        struct stat existing;
        if (stat(target.c_str(), &existing) == 0 && S_ISREG(existing.st_mode))
            fchmod(fd, existing.st_mode & 07777);
        close(fd);
        return candidate;
    }
    return std::string();
}

void printSection(const TarnSDSFileSection& section, const char* title, const char* formatLabel,
                  const char* dataLabel, const char* formatSeparator) {
    std::cout << title << formatLabel << terminated(section.m_items, formatSeparator) << "\n"
              << dataLabel;
    for (const auto& [key, values] : section.m_datas)
        std::cout << '\t' << key << " = " << terminated(values, ", ") << "\n";
    std::cout << "\n";
}

void printGenerated(const TarnSDSFileSection& section, const char* heading) {
    std::cout << heading << "Format = " << join(section.m_items, ", ") << "\n";
    for (const auto& [key, values] : section.m_datas)
        std::cout << key << " = " << join(values, ", ") << "\n";
}

// A target that is a symbolic link is written through the link, as opening
// it would, instead of having the link replaced by a plain file.
std::string resolveLink(const std::string& path) {
    struct stat link;
    if (lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode))
        return path;
    char* resolved = realpath(path.c_str(), nullptr);
    if (!resolved)
        return path;
    std::string target = resolved;
    free(resolved);
    return target;
}

}  // namespace

void TarnSDSFile::writeSDS(std::string path) const {
    // The file is written beside the target and moved into place only when
    // complete, so a failed write never leaves a truncated file behind.
    path = resolveLink(path);
    std::string temporary = reserveTemporaryBeside(path);
    if (temporary.empty())
        return;
    std::ofstream out(temporary, std::ios::out | std::ios::trunc | std::ios::binary);
    if (out)
        writeSupportText(*this, out);
    out.close();
    if (out.fail() || std::rename(temporary.c_str(), path.c_str()) != 0)
        std::remove(temporary.c_str());
}

void TarnSDSFile::printMe() const {
    std::cout << "PM Name is " << m_pm << "\n";

    std::cout << "Package alias:\n";
    for (const auto& [package, aliases] : m_pkgAlias)
        std::cout << '\t' << package << " = " << terminated(aliases, ", ") << "\n";
    std::cout << "\n";

    std::cout << "Resource Items:\n";
    for (const auto& item : m_resourceItems)
        std::cout << '\t' << item << "\n";
    std::cout << "\n";

    std::cout << "Part Exception:\n";
    for (const auto& part : m_partExceptions)
        std::cout << '\t' << part << "\n";
    std::cout << "\n";

    printSection(m_pmSection, "PM map:\n", "PM items format: ", "PM items data: \n", ", ");
    printSection(m_deviceSection, "Device map:\n", "Device items format: ", "Device items data: \n",
                 ", ");
    printSection(m_packageSection, "Package map:\n",
                 "Package items format: ", "Package items data: \n", ",");
    printSection(m_partSection, "Def Part map:\n",
                 "Def Part items format: ", "Def Part items data: \n", ",");

    printGenerated(m_genericDevices, "[Generic Devices]\n");
    std::cout << "\n\n";
    printGenerated(m_deviceInfo, "[Device Info]\n");
    std::cout << "\n";
}

}  // namespace tarn::vyxpn
