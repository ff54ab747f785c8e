// SPDX-License-Identifier: MIT
#include "man_page.h"

#include <sstream>

#include "devctrl/util/version.h"
#include "tool_description.h"

namespace devctrl_tool {

namespace {

// Text as roff shows it literally: backslashes and hyphens escaped, and no
// line starting with a control character.
std::string roff(const std::string& text) {
    std::string escaped;
    bool lineStart = true;
    for (const char c : text) {
        if (lineStart && (c == '.' || c == '\''))
            escaped += "\\&";
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else
            escaped += c;
        lineStart = c == '\n';
    }
    return escaped;
}

// A block of help text: paragraphs stay paragraphs, indented lines (lists,
// examples) stay as they are.
std::string roffBlock(const std::string& text) {
    std::ostringstream out;
    std::istringstream lines(text);
    bool literal = false;
    for (std::string line; std::getline(lines, line);) {
        const bool indented = !line.empty() && line[0] == ' ';
        if (line.empty()) {
            if (literal)
                out << ".fi\n";
            literal = false;
            out << ".PP\n";
            continue;
        }
        if (indented && !literal) {
            out << ".nf\n";
            literal = true;
        } else if (!indented && literal) {
            out << ".fi\n";
            literal = false;
        }
        out << roff(line) << '\n';
    }
    if (literal)
        out << ".fi\n";
    return out.str();
}

std::string optionHead(const CLI::Option& option) {
    std::string head = "\\fB" + roff(option.get_name(false, true)) + "\\fR";
    if (!option.get_type_name().empty())
        head += " \\fI" + roff(option.get_type_name()) + "\\fR";
    return head;
}

void writeOptions(std::ostream& out, const CLI::App& app) {
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_name(false, true).find("help") != std::string::npos)
            continue;
        out << ".TP\n";
        if (option->get_positional())
            out << "\\fI" << roff(option->get_name()) << "\\fR\n";
        else
            out << optionHead(*option) << '\n';
        out << roff(option->get_description()) << '\n';
    }
}

std::string usageOf(const CLI::App& app, const std::string& path) {
    std::string usage = "devctrl " + path;
    for (const CLI::Option* option : app.get_options()) {
        if (!option->get_positional())
            continue;
        std::string name = option->get_name();
        if (option->get_items_expected_max() > 1)
            name += "...";
        usage += option->get_required() ? " " + name : " [" + name + "]";
    }
    return usage;
}

void writeCommand(std::ostream& out, const ToolDescription& tool, const CLI::App& app,
                  const std::string& path) {
    out << ".SS \"" << roff(usageOf(app, path)) << "\"\n" << roff(app.get_description()) << '\n';
    writeOptions(out, app);
    const auto own = tool.ownFooters.find(&app);
    if (own != tool.ownFooters.end() && !own->second.empty())
        out << ".PP\n" << roffBlock(own->second);
    for (const CLI::App* sub : const_cast<CLI::App&>(app).get_subcommands({}))
        writeCommand(out, tool, *sub, path + " " + sub->get_name());
}

}  // namespace

std::string manPage(const ToolDescription& tool) {
    std::ostringstream out;
    out << ".TH DEVCTRL 1 \"\" \"devctrl " << tarn::vyxpn::libraryVersion()
        << "\" \"User Commands\"\n"
        << ".SH NAME\ndevctrl \\- ask the device catalogue of the FPGA tool chain\n"
        << ".SH SYNOPSIS\n\\fBdevctrl\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR "
           "[\\fIARGUMENTS\\fR]\n"
        << ".SH DESCRIPTION\n"
        << roff(kToolSummary) << '\n'
        << ".PP\nNames are compared as typed, except PM arguments, which also take a family "
           "name in any letter case. Run \\fBdevctrl shell\\fR to answer many commands after "
           "one load.\n"
        << ".SH OPTIONS\nThese options may stand before or after the command.\n";
    writeOptions(out, tool.app);
    out << ".SH COMMANDS\n";
    for (const CLI::App* sub : const_cast<CLI::App&>(tool.app).get_subcommands({}))
        writeCommand(out, tool, *sub, sub->get_name());
    out << ".SH EXIT STATUS\n"
        << roffBlock(
               std::string(kExitStatusText).substr(std::string(kExitStatusText).find('\n') + 1))
        << ".SH ENVIRONMENT\n"
        << roffBlock(
               std::string(kEnvironmentText).substr(std::string(kEnvironmentText).find('\n') + 1))
        << ".SH FILES\n.TP\n\\fIDATA_DIR\\fR/\\fIpm\\fR/family.key, device.acd, "
           "\\fIpm\\fR.pwd\nA family's part-model keys, device tables and part data; "
           "\\fBdevctrl info \\-\\-data\\-dir\\fR prints the data directory in use.\n"
        << ".TP\n\\fIDATA_DIR\\fR/pqrndev.lst\nRenamed and migrated device names.\n"
        << ".TP\n~/.config/devctrl/settings.ini\nThe user's default device, unless "
           "DEVCTRL_SETTINGS names another file.\n"
        << ".SH EXAMPLES\n.nf\n"
        << roff(
               "devctrl devices zr1\n"
               "devctrl parts zr1 'ZR12-*BG*' --speed 6 --condition C\n"
               "devctrl validate ZR25-6F256C --asc ASC10\n"
               "printf 'part ZR12-6BG100C\\nexists ZR4-6QF48C\\n' | devctrl --json shell\n")
        << ".fi\n"
        << ".SH SEE ALSO\nThe README of the devctrl sources, and \\fBdevctrl COMMAND "
           "\\-\\-help\\fR.\n";
    return out.str();
}

}  // namespace devctrl_tool
