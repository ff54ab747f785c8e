// SPDX-License-Identifier: MIT
// devctrl._ini: the INI profile functions, wrapped by devctrl.ini.
#include <strings.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <vector>

#include "catalogue.h"
#include "devctrl/util/profile.h"

namespace devctrl_py {

namespace {

constexpr unsigned kBufferSize = 64 * 1024;

void requireReadable(const std::string& path) {
    FILE* probe = std::fopen(path.c_str(), "r");
    if (!probe) {
        errno = errno ? errno : ENOENT;
        PyErr_SetFromErrnoWithFilename(PyExc_OSError, path.c_str());
        throw py::error_already_set();
    }
    std::fclose(probe);
}

// The profile functions return lists NUL-separated.
std::vector<std::string> splitList(const std::vector<char>& buffer, unsigned count) {
    std::vector<std::string> items;
    for (unsigned position = 0; position < count;) {
        std::string item(buffer.data() + position);
        position += static_cast<unsigned>(item.size()) + 1;
        items.push_back(item);
    }
    return items;
}

std::vector<std::string> listOf(const char* section, const std::string& path) {
    std::vector<char> buffer(kBufferSize, '\0');
    const unsigned count = GetPrivateProfileString(section, nullptr, nullptr, buffer.data(),
                                                   kBufferSize, path.c_str());
    return splitList(buffer, count);
}

bool containsNoCase(const std::vector<std::string>& names, const std::string& name) {
    for (const auto& candidate : names)
        if (strcasecmp(candidate.c_str(), name.c_str()) == 0)
            return true;
    return false;
}

void requireSection(const std::string& path, const std::string& section) {
    if (!containsNoCase(listOf(nullptr, path), section))
        throw py::key_error("no section [" + section + "] in " + path);
}

std::string read(const std::string& path, const std::string& section, const std::string& key,
                 const std::optional<std::string>& defaultValue) {
    requireReadable(path);
    if (!defaultValue) {
        requireSection(path, section);
        if (!containsNoCase(listOf(section.c_str(), path), key))
            throw py::key_error("no key " + key + " in section [" + section + "] of " + path);
    }
    std::vector<char> buffer(kBufferSize, '\0');
    GetPrivateProfileString(section.c_str(), key.c_str(), defaultValue.value_or("").c_str(),
                            buffer.data(), kBufferSize, path.c_str());
    return buffer.data();
}

void write(const std::string& path, const std::string& section, const std::string& key,
           const std::string& value) {
    if (section.empty() || key.empty())
        throw py::value_error("section and key must not be empty");
    if (!WritePrivateProfileString(section.c_str(), key.c_str(), value.c_str(), path.c_str()))
        throw py::value_error("cannot write " + key + " in section [" + section + "] of " + path);
}

void remove(const std::string& path, const std::string& section,
            const std::optional<std::string>& key) {
    requireReadable(path);
    requireSection(path, section);
    if (key && !containsNoCase(listOf(section.c_str(), path), *key))
        throw py::key_error("no key " + *key + " in section [" + section + "] of " + path);
    // The result is no success flag: removing the last entry of a file
    // reports 0 although the file changed.
    WritePrivateProfileString(section.c_str(), key ? key->c_str() : nullptr, nullptr, path.c_str());
}

}  // namespace

void bindIni(py::module_& m) {
    py::module_ ini = m.def_submodule("_ini", "The INI profile functions (see devctrl.ini).");
    ini.def("read", &read, py::arg("path"), py::arg("section"), py::arg("key"),
            py::arg("default") = py::none());
    ini.def("write", &write, py::arg("path"), py::arg("section"), py::arg("key"), py::arg("value"));
    ini.def("delete", &remove, py::arg("path"), py::arg("section"), py::arg("key") = py::none());
    ini.def(
        "sections",
        [](const std::string& path) {
            requireReadable(path);
            return listOf(nullptr, path);
        },
        py::arg("path"));
    ini.def(
        "keys",
        [](const std::string& path, const std::string& section) {
            requireReadable(path);
            requireSection(path, section);
            return listOf(section.c_str(), path);
        },
        py::arg("path"), py::arg("section"));
}

}  // namespace devctrl_py
