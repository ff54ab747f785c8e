// SPDX-License-Identifier: MIT
// devctrl ini: read and change INI profile files (such as the device name
// list) with the library's own profile functions, so that what the tool shows
// is exactly what the library reads.

#include <errno.h>
#include <string.h>
#include <strings.h>

#include <cstdio>
#include <vector>

#include "command.h"
#include "devctrl/util/profile.h"
#include "devctrl/util/profile_write.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_list.h"

namespace devctrl_tool {
namespace {

using tarn::vyxpn::StringList;
namespace profile = tarn::vyxpn::util::profile;

// Lists and values are read into buffers far larger than any line can be.
constexpr unsigned kBufferSize = 64 * 1024;

const char* kMatchingFooter =
    "Sections and keys are matched without regard to case; only the first section of a "
    "name is searched. Values are read trimmed, with one pair of enclosing quotes removed.";

void requireReadable(const std::string& file) {
    FILE* probe = fopen(file.c_str(), "r");
    if (!probe)
        throw ToolError("cannot read " + tarn::vyxpn::util::escapedForMessage(file) + ": " +
                        strerror(errno));
    fclose(probe);
}

// The NUL-separated list of `count` characters in `buffer`.
StringList splitList(const std::vector<char>& buffer, unsigned count) {
    StringList items;
    for (unsigned position = 0; position < count;) {
        std::string item(buffer.data() + position);
        position += static_cast<unsigned>(item.size()) + 1;
        items.push_back(item);
    }
    return items;
}

StringList sectionsOf(const std::string& file) {
    std::vector<char> buffer(kBufferSize, '\0');
    unsigned count = GetPrivateProfileString(nullptr, nullptr, nullptr, buffer.data(), kBufferSize,
                                             file.c_str());
    return splitList(buffer, count);
}

StringList keysOf(const std::string& file, const std::string& section) {
    std::vector<char> buffer(kBufferSize, '\0');
    unsigned count = GetPrivateProfileString(section.c_str(), nullptr, nullptr, buffer.data(),
                                             kBufferSize, file.c_str());
    return splitList(buffer, count);
}

bool containsNoCase(const StringList& list, const std::string& name) {
    for (const auto& item : list)
        if (strcasecmp(item.c_str(), name.c_str()) == 0)
            return true;
    return false;
}

void requireSection(const std::string& file, const std::string& section) {
    if (!containsNoCase(sectionsOf(file), section))
        throw ToolError("no section [" + tarn::vyxpn::util::escapedForMessage(section) + "] in " +
                        tarn::vyxpn::util::escapedForMessage(file));
}

std::string readWithDefault(const std::string& file, const std::string& section,
                            const std::string& key, const char* defaultValue) {
    std::vector<char> buffer(kBufferSize, '\0');
    GetPrivateProfileString(section.c_str(), key.c_str(), defaultValue, buffer.data(), kBufferSize,
                            file.c_str());
    return buffer.data();
}

// An empty value and a missing key read the same, so the key is read with
// two different defaults: only a value that is really there comes back the
// same both times.
bool lookup(const std::string& file, const std::string& section, const std::string& key,
            std::string* value) {
    std::string first = readWithDefault(file, section, key, "\x01");
    std::string second = readWithDefault(file, section, key, "\x02");
    if (first != second)
        return false;
    *value = first;
    return true;
}

// A key the file could not hold as a key of its own.
void requireUsableKey(const std::string& key) {
    if (key.empty())
        throw ToolError("the key must not be empty");
    if (key.find('=') != std::string::npos)
        throw ToolError("the key must not contain '='");
    if (key[0] == '[' || key[0] == ';')
        throw ToolError("the key must not start with '[' or ';'");
}

// What the file would not give back exactly is refused before writing.
void requireReadsBack(const std::string& section, const std::string& key,
                      const std::string& value) {
    if (section.empty())
        throw ToolError("the section must not be empty");
    requireUsableKey(key);
    std::string problem = profile::entryProblem(section, key, value);
    if (!problem.empty())
        throw ToolError(problem);
}

void requireWritten(const profile::WriteOutcome& outcome) {
    if (!outcome.written)
        throw ToolError(outcome.error);
}

class IniCommand : public Command {
  public:
    std::string name() const override { return "ini"; }
    std::string summary() const override { return "Read and change INI profile files"; }

    void configure(CLI::App& command) override {
        command.require_subcommand(1, 1);
        command.footer(
            "Works on any INI file, such as the device name list; no device data are "
            "loaded.");

        m_get = command.add_subcommand("get", "Print the value of a key");
        addFileSectionKey(*m_get, true);
        m_defaultOption =
            m_get->add_option("--default", m_default,
                              "Print this instead when the key is absent (trimmed, one pair of "
                              "quotes removed)");
        m_get->footer(std::string(kMatchingFooter) +
                      " A key that is absent, or written without '=', is an error unless "
                      "--default is given.");

        m_keys = command.add_subcommand("keys", "List the keys of a section in file order");
        addFileSectionKey(*m_keys, false);
        m_keys->footer(kMatchingFooter);

        m_sections = command.add_subcommand("sections", "List the sections in file order");
        m_sections->add_option("file", m_file, "The INI file")->required();

        m_set = command.add_subcommand("set", "Set a key, adding it or its section if needed");
        addFileSectionKey(*m_set, true);
        m_set->add_option("value", m_value, "The new value")->required();
        m_set->footer(
            "A new key goes last in its section, a new section at the end of the file; a "
            "missing file is created. The file is rewritten with every line trimmed. A value "
            "that would not read back exactly is refused: a line (key=value) longer than " +
            std::to_string(profile::kLongestLine) +
            " characters, a line break, blanks at either end, or enclosing quotes.");

        m_delete = command.add_subcommand("delete", "Remove a key, or a whole section");
        addFileSectionKey(*m_delete, false);
        m_keyOption = m_delete->add_option("key", m_key, "The key (omit to remove the section)");
        m_delete->footer(
            "Only the first section of the name is touched. The comments of a removed "
            "section stay in the file.");
    }

    int run(Context& context) override {
        if (m_get->parsed())
            return runGet(context);
        if (m_keys->parsed())
            return runKeys(context);
        if (m_sections->parsed())
            return runSections(context);
        if (m_set->parsed())
            return runSet(context);
        return runDelete(context);
    }

  private:
    void addFileSectionKey(CLI::App& sub, bool withKey) {
        sub.add_option("file", m_file, "The INI file")->required();
        sub.add_option("section", m_section, "The section name")->required();
        if (withKey)
            sub.add_option("key", m_key, "The key")->required();
    }

    int runGet(Context& context) {
        requireReadable(m_file);
        std::string value;
        if (m_defaultOption->count() > 0) {
            value = readWithDefault(m_file, m_section, m_key, m_default.c_str());
        } else if (!lookup(m_file, m_section, m_key, &value)) {
            if (!containsNoCase(sectionsOf(m_file), m_section))
                throw ToolError("no section [" + tarn::vyxpn::util::escapedForMessage(m_section) +
                                "] in " + tarn::vyxpn::util::escapedForMessage(m_file));
            throw ToolError("no key " + tarn::vyxpn::util::escapedForMessage(m_key) +
                            " in section [" + tarn::vyxpn::util::escapedForMessage(m_section) +
                            "] of " + tarn::vyxpn::util::escapedForMessage(m_file));
        }
        context.out.value(value);
        return 0;
    }

    int runKeys(Context& context) {
        requireReadable(m_file);
        requireSection(m_file, m_section);
        context.out.list(keysOf(m_file, m_section), "key");
        return 0;
    }

    int runSections(Context& context) {
        requireReadable(m_file);
        context.out.list(sectionsOf(m_file), "section");
        return 0;
    }

    int runSet(Context& context) {
        requireReadsBack(m_section, m_key, m_value);
        requireWritten(profile::writeProfileString(m_section.c_str(), m_key.c_str(),
                                                   m_value.c_str(), m_file.c_str()));
        reportChange(context, "set", true);
        return 0;
    }

    int runDelete(Context& context) {
        requireReadable(m_file);
        requireSection(m_file, m_section);
        bool withKey = m_keyOption->count() > 0;
        if (withKey && !containsNoCase(keysOf(m_file, m_section), m_key))
            throw ToolError("no key " + tarn::vyxpn::util::escapedForMessage(m_key) +
                            " in section [" + tarn::vyxpn::util::escapedForMessage(m_section) +
                            "] of " + tarn::vyxpn::util::escapedForMessage(m_file));
        // The result is not a success flag: removing the last section of a
        // file, or a key of it, reports 0 although the file changed.
        requireWritten(profile::writeProfileString(
            m_section.c_str(), withKey ? m_key.c_str() : nullptr, nullptr, m_file.c_str()));
        reportChange(context, "delete", withKey);
        return 0;
    }

    // Silent on success for people; a summary object for scripts.
    void reportChange(Context& context, const char* action, bool withKey) {
        QJsonObject summary{{"action", action}, {"file", qs(m_file)}, {"section", qs(m_section)}};
        if (withKey)
            summary.insert("key", qs(m_key));
        if (m_set->parsed())
            summary.insert("value", qs(m_value));
        context.out.print(summary, "");
    }

    CLI::App* m_get = nullptr;
    CLI::App* m_keys = nullptr;
    CLI::App* m_sections = nullptr;
    CLI::App* m_set = nullptr;
    CLI::App* m_delete = nullptr;
    CLI::Option* m_keyOption = nullptr;
    CLI::Option* m_defaultOption = nullptr;
    std::string m_file;
    std::string m_section;
    std::string m_key;
    std::string m_value;
    std::string m_default;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::IniCommand)
