// SPDX-License-Identifier: MIT
// devctrl: ask the device catalogue from a shell or a script.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "checked_stdout.h"
#include "command.h"
#include "commands/name_lookup.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/load_progress.h"
#include "devctrl/util/quote.h"
#include "platform/base_settings.h"
#include "progress_line.h"

namespace devctrl_tool {

struct ErrorPrinter {
    bool json = false;
    // Prints `message`; returns `status`.
    int operator()(const std::string& message, int status) const;
};
bool wantsJson(int argc, char** argv);

namespace {
std::map<std::string, std::unique_ptr<Command>>& registry() {
    static std::map<std::string, std::unique_ptr<Command>> commands;
    return commands;
}

// The family being loaded, for naming it when its data stop the load.
tarn::vyxpn::LoadProgress loading;

bool verboseLoad = false;

// The traces of a family's load are held until the next family starts: a
// family switched off on purpose says so only with -v.
void releaseFamilyTraces() {
    const auto* mngr = tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    const bool deliberate = mngr && !loading.pm.empty() && mngr->isSwitchedOff(loading.pm);
    releaseTraces(verboseLoad || !deliberate);
}

void installProgress() {
    loading = {};
    tarn::vyxpn::setLoadProgressHandler([](const tarn::vyxpn::LoadProgress& progress) {
        releaseFamilyTraces();
        loading = progress;
        holdTraces();
        // Large installations take seconds: say how far along the load is.
        showProgressLine("devctrl: loading family " + std::to_string(progress.index) + " of " +
                         std::to_string(progress.count));
        return true;
    });
}

void clearProgress() {
    releaseFamilyTraces();
    clearProgressLine();
    tarn::vyxpn::setLoadProgressHandler(nullptr);
}

// "family ZR1 (PM zr1a00)" for the family whose load failed.
std::string familyLoadedAs(const tarn::vyxpn::LoadProgress& progress) {
    if (progress.pm.empty())
        return "loading the families";
    return "family " +
           (progress.family.empty() ? progress.pm : progress.family + " (PM " + progress.pm + ")");
}

// The family whose data raised `error`, named as familyLoadedAs names it.
std::string familyOf(const tarn::vyxpn::DataError& error) {
    tarn::vyxpn::LoadProgress broken;
    broken.pm = error.pm();
    broken.family = tarn::vyxpn::TarnDeviceMngr::basePmToFamily(error.pm());
    return familyLoadedAs(broken);
}

// What a command's arguments say it works on: its first part, PM or family
// argument, looked for in the chosen subcommand and the subcommand it chose.
std::string subjectOf(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        if (!option->get_positional() || option->count() == 0)
            continue;
        std::string name = option->get_name();
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        const std::string value = option->results().front();
        if (name == "part" || name == "name")
            return "part " + value;
        if (name == "pm")
            return "PM " + value;
        if (name == "family")
            return "family " + value;
    }
    for (const CLI::App* nested : command.get_subcommands())
        if (nested->parsed())
            return subjectOf(*nested);
    return "";
}
}  // namespace

bool CommandRegistry::add(std::unique_ptr<Command> command) {
    auto name = command->name();
    return registry().emplace(std::move(name), std::move(command)).second;
}

std::vector<Command*> CommandRegistry::all() {
    std::vector<Command*> commands;
    for (auto& entry : registry())
        commands.push_back(entry.second.get());
    return commands;
}

void Context::requireData() {
    const std::string path = BaseSystem::getDataPath().absolutePath().toStdString();
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        throw ToolError("data directory " + tarn::vyxpn::util::escapedForMessage(path) + ": " +
                            std::strerror(errno),
                        3);
    if (!S_ISDIR(info.st_mode))
        throw ToolError(
            "data directory " + tarn::vyxpn::util::escapedForMessage(path) + " is not a directory",
            3);
    DIR* listing = ::opendir(path.c_str());
    if (!listing)
        throw ToolError("cannot read data directory " + tarn::vyxpn::util::escapedForMessage(path) +
                            ": " + std::strerror(errno),
                        3);
    ::closedir(listing);
}

tarn::vyxpn::TarnDeviceMngr& Context::mngr() {
    using tarn::vyxpn::TarnDeviceMngr;
    if (!TarnDeviceMngr::m_pMngr) {
        requireData();
        verboseLoad = verbose;
        installProgress();
        try {
            TarnDeviceMngr::getInstance(TarnDeviceMngr::BrokenFamilies::Skip);
        } catch (const tarn::vyxpn::DataError&) {
            // Bad data stopped the load: the family they belong to is what
            // the user must look at, whatever the command was about.
            clearProgress();
            subject.clear();
            throw;
        } catch (...) {
            // Not the data: the load was stopped while this family loaded.
            clearProgress();
            subject = familyLoadedAs(loading);
            throw;
        }
        clearProgress();
        // A broken family is named once; the command answers for the others.
        for (const tarn::vyxpn::DataError& failure : TarnDeviceMngr::m_pMngr->loadFailures())
            std::cerr << "devctrl: " << familyOf(failure) << " not loaded: " << failure.what()
                      << '\n';
        tarn::vyxpn::StringList installed;
        TarnDeviceMngr::baseGetAllPMs(installed);
        if (installed.empty())
            std::cerr << "devctrl: no families installed in "
                      << tarn::vyxpn::util::escapedForMessage(
                             BaseSystem::getDataPath().absolutePath().toStdString())
                      << '\n';
    }
    return *TarnDeviceMngr::m_pMngr;
}

// A failure as one line on standard error, or with JSON output as one JSON
// document, so that a script reading JSON never has to parse prose.
int ErrorPrinter::operator()(const std::string& message, int status) const {
    if (json)
        std::cerr << toJsonText(QJsonObject{
                         {"error", QJsonObject{{"message", qs(message)}, {"exit_status", status}}}})
                  << '\n';
    else
        std::cerr << "devctrl: " << message << '\n';
    return status;
}

// Whether the command line asks for JSON, read before (or without) the
// parser: a command line the parser refuses still gets its error as JSON.
bool wantsJson(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--json" || argument == "--format=json" ||
            (argument == "--format" && i + 1 < argc && std::string(argv[i + 1]) == "json"))
            return true;
    }
    return false;
}

// The first argument that is neither an option nor the value of --data: what
// the user meant as the command.
std::string firstWord(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--data" || argument == "--format")
            ++i;
        else if (!argument.empty() && argument[0] != '-')
            return argument;
    }
    return "";
}

}  // namespace devctrl_tool

namespace {

int runTool(int argc, char** argv) {
    using namespace devctrl_tool;
    CLI::App app{
        "devctrl: the device catalogue of the tool chain. Lists families, devices, "
        "packages, speed grades, conditions and parts, reads part settings and "
        "validates a choice.",
        "devctrl"};
    app.require_subcommand(1, 1);
    app.fallthrough();
    std::string dataDir;
    bool json = false;
    std::string formatName = "lines";
    bool quiet = false;
    bool verbose = false;
    app.add_option("--data", dataDir,
                   "Data directory of the installation to read (overrides DEVCTRL_DATA_DIR; "
                   "default: the sample installation)");
    app.add_flag("--json", json, "Print results as JSON (short for --format json)");
    app.add_option("--format", formatName,
                   "Output format: lines (default), table (aligned, headed), csv or json")
        ->check(CLI::IsMember(formatNames()));
    app.add_flag("-q,--quiet", quiet, "Do not print the library's load traces");
    app.add_flag("-v,--verbose", verbose,
                 "Also print the load traces of families switched off on purpose "
                 "(PM_ENABLE not true)");
    app.footer(
        "Run 'devctrl COMMAND --help' for a command's arguments.\n\n"
        "Exit status:\n"
        "  0  done; the answer is yes\n"
        "  1  the answer is no (exists, validate, check), a name is unknown, the data\n"
        "     have problems (check-data), or the output could not be written\n"
        "  2  the command line is wrong\n"
        "  3  the installation cannot be read, or its data stopped the command\n"
        "A family whose data are broken is named on standard error and left out;\n"
        "the others still answer. A reader that closes the pipe early (| head) ends\n"
        "devctrl quietly, as a broken pipe ends any command.");

    std::map<CLI::App*, Command*> bySubcommand;
    for (Command* command : CommandRegistry::all()) {
        CLI::App* sub = app.add_subcommand(command->name(), command->summary());
        command->configure(*sub);
        bySubcommand[sub] = command;
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0)
            return app.exit(e);
        ErrorPrinter error{wantsJson(argc, argv)};
        // Point at the help of the command that was being read, if any.
        std::string help = "devctrl";
        for (const CLI::App* sub : app.get_subcommands())
            help += " " + sub->get_name();
        const std::string unknown = help == "devctrl" ? firstWord(argc, argv) : "";
        if (!unknown.empty()) {
            NearNames near(unknown);
            for (const Command* command : CommandRegistry::all())
                near.consider(command->name());
            return error(unknownNameMessage("command", unknown, near.best()) + " (see '" + help +
                             " --help')",
                         2);
        }
        return error(
            tarn::vyxpn::util::escapedForMessage(e.what()) + " (see '" + help + " --help')", 2);
    }
    const Format format = json ? Format::Json : *parseFormat(formatName);
    const ErrorPrinter error{format == Format::Json};
    if (json && formatName != "lines" && formatName != "json")
        return error("--json and --format " + formatName + " contradict each other", 2);

    if (!dataDir.empty())
        setenv("DEVCTRL_DATA_DIR", dataDir.c_str(), 1);
    installTraceHandler(quiet);

    Output out(format);
    Context context{out, ""};
    context.verbose = verbose;
    try {
        for (auto& [sub, command] : bySubcommand) {
            if (!sub->parsed())
                continue;
            if (!command->tabular() && (format == Format::Table || format == Format::Csv))
                return error("'" + command->name() + "' prints no rows; use --format lines or json",
                             2);
            context.subject = subjectOf(*sub);
            return command->run(context);
        }
    } catch (const ToolError& e) {
        return error(e.what(), e.status());
    } catch (const tarn::vyxpn::DataError& e) {
        // The error names its file, key and record; the family is added.
        return error((context.subject.empty()
                          ? ""
                          : tarn::vyxpn::util::escapedForMessage(context.subject) + ": ") +
                         "error in the installed data" +
                         (e.pm().empty() ? std::string() : " of " + familyOf(e)) + ": " + e.what(),
                     3);
    } catch (const std::exception& e) {
        // Anything else the data provoked: one line that says where to look.
        return error(
            (context.subject.empty()
                 ? ""
                 : tarn::vyxpn::util::escapedForMessage(context.subject) + ": ") +
                "error in the installed data: " + tarn::vyxpn::util::escapedForMessage(e.what()),
            3);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace devctrl_tool;
    restoreBrokenPipeDefault();
    // Every answer goes through one checked buffer: an answer cut short by a
    // write error must not end in a success status.
    CheckedStdout checked;
    std::streambuf* previous = std::cout.rdbuf(&checked);
    int status = runTool(argc, argv);
    std::cout.rdbuf(previous);
    const std::string writeError = checked.finish();
    if (!writeError.empty())
        status = ErrorPrinter{wantsJson(argc, argv)}("cannot write the output: " + writeError,
                                                     status == 0 ? 1 : status);
    return status;
}
