// SPDX-License-Identifier: MIT
// The device-support description of a family for outside design-entry tools,
// and a text dump of every table for diagnosis. Both layouts are compared as
// text by their readers, separators included, so they are kept byte for byte.

#include <iostream>
#include <sstream>

#include "devctrl/sds/sds_file.h"
#include "platform/file_writer.h"

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
        out << part << " = " << join(values, ", ") << '\n';
    out << "\n[Device Info]\nFormat = " << join(family.m_deviceInfo.m_items, ", ") << '\n';
    for (const auto& [key, values] : family.m_deviceInfo.m_datas)
        out << key << " = " << join(values, ", ") << '\n';
    out << '\n';
}

void printSection(std::ostream& out, const TarnSDSFileSection& section, const char* title,
                  const char* formatLabel, const char* dataLabel, const char* formatSeparator) {
    out << title << formatLabel << terminated(section.m_items, formatSeparator) << "\n"
        << dataLabel;
    for (const auto& [key, values] : section.m_datas)
        out << '\t' << key << " = " << terminated(values, ", ") << "\n";
    out << "\n";
}

void printGenerated(std::ostream& out, const TarnSDSFileSection& section, const char* heading) {
    out << heading << "Format = " << join(section.m_items, ", ") << "\n";
    for (const auto& [key, values] : section.m_datas)
        out << key << " = " << join(values, ", ") << "\n";
}

}  // namespace

std::string TarnSDSFile::sdsText() const {
    std::ostringstream text;
    writeSupportText(*this, text);
    return text.str();
}

SdsWriteResult TarnSDSFile::writeSupportFile(const std::string& path) const {
    // Written whole or not at all; the file writer never replaces a FIFO or
    // device and keeps the identity of a file that others hold.
    SdsWriteResult result;
    result.written = platform::writeWholeFile(path, sdsText(), &result.reason);
    return result;
}

void TarnSDSFile::writeSDS(std::string path) const {
    writeSupportFile(path);
}

void TarnSDSFile::printMe() const {
    printMe(std::cout);
}

void TarnSDSFile::printMe(std::ostream& out) const {
    out << "PM Name is " << m_pm << "\n";

    out << "Package alias:\n";
    for (const auto& [package, aliases] : m_pkgAlias)
        out << '\t' << package << " = " << terminated(aliases, ", ") << "\n";
    out << "\n";

    out << "Resource Items:\n";
    for (const auto& item : m_resourceItems)
        out << '\t' << item << "\n";
    out << "\n";

    out << "Part Exception:\n";
    for (const auto& part : m_partExceptions)
        out << '\t' << part << "\n";
    out << "\n";

    printSection(out, m_pmSection, "PM map:\n", "PM items format: ", "PM items data: \n", ", ");
    printSection(out, m_deviceSection, "Device map:\n",
                 "Device items format: ", "Device items data: \n", ", ");
    printSection(out, m_packageSection, "Package map:\n",
                 "Package items format: ", "Package items data: \n", ",");
    printSection(out, m_partSection, "Def Part map:\n",
                 "Def Part items format: ", "Def Part items data: \n", ",");

    printGenerated(out, m_genericDevices, "[Generic Devices]\n");
    out << "\n\n";
    printGenerated(out, m_deviceInfo, "[Device Info]\n");
    out << "\n";
}

}  // namespace tarn::vyxpn
