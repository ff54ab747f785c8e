// SPDX-License-Identifier: MIT
#pragma once
// The whole command line of `devctrl`, built from the command registry: what
// parses a command line, and what the help, the man page and the shell
// completions are written from, so that they never disagree.

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "command.h"

namespace devctrl_tool {

inline constexpr const char* kToolSummary =
    "devctrl: the device catalogue of the tool chain. Lists families, devices, packages, speed "
    "grades, conditions and parts, reads part settings and validates a choice.";

inline constexpr const char* kExitStatusText =
    "Exit status:\n"
    "  0  done; the answer is yes\n"
    "  1  the answer is no (exists, validate, check), a name is unknown, the data\n"
    "     have problems (check-data), or the output could not be written\n"
    "  2  the command line is wrong\n"
    "  3  the installation cannot be read, or its data stopped the command\n"
    "A family whose data are broken is named on standard error and left out;\n"
    "the others still answer. A reader that closes the pipe early (| head) ends\n"
    "devctrl quietly, as a broken pipe ends any command.\n";

inline constexpr const char* kEnvironmentText =
    "Environment:\n"
    "  DEVCTRL_DATA_DIR       the installation to read when --data is not given\n"
    "                         (default: the sample installation beside the library)\n"
    "  DEVCTRL_SETTINGS       the settings file holding the default device (default:\n"
    "                         devctrl/settings.ini in the user's configuration directory)\n"
    "  TARN_SHOW_ALL_DEVICES  when set, families switched off with PM_ENABLE load too\n"
    "  DEVCTRL_CACHE_DIR      where the index of part names to families is kept (default:\n"
    "                         devctrl/ in XDG_CACHE_HOME or ~/.cache)\n"
    "  DEVCTRL_FULL_LOAD      when 1, every command loads every family, not only the\n"
    "                         families its question needs\n";

// The top-level command line with a fresh object of every command; the
// options write into the fields below and into the command objects.
struct ToolDescription {
    // Every command's command line, for help, the man page and completion.
    ToolDescription();
    // Only the commands that `args` names, or all when it names none: a word
    // that is not a command name can never select a command, so the line
    // parses as with all of them, and a shell session does not pay for
    // describing every command on every line.
    explicit ToolDescription(const std::vector<std::string>& args);
    ToolDescription(const ToolDescription&) = delete;
    ToolDescription& operator=(const ToolDescription&) = delete;

    std::string dataDir;
    bool json = false;
    std::string formatName = "lines";
    bool quiet = false;
    bool verbose = false;
    std::vector<std::unique_ptr<Command>> commands;
    std::map<CLI::App*, Command*> bySubcommand;
    // Each command's footer as the command wrote it, before the global
    // options were added for --help.
    std::map<const CLI::App*, std::string> ownFooters;
    CLI::App app;  // declared last: it points into everything above
};

// Runs one command line (without the program name) as `devctrl` would, and
// returns its exit status. Errors are printed on standard error.
int runCommandLine(const std::vector<std::string>& args);

}  // namespace devctrl_tool
