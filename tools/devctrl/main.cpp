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
#include "completion.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/load_progress.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/version.h"
#include "platform/base_settings.h"
#include "progress_line.h"
#include "tool_description.h"

namespace devctrl_tool {

struct ErrorPrinter {
    bool json = false;
    // Prints `message`; returns `status`.
    int operator()(const std::string& message, int status) const;
};
bool wantsJson(const std::vector<std::string>& args);

namespace {
std::vector<CommandRegistry::Factory>& factories() {
    static std::vector<CommandRegistry::Factory> registered;
    return registered;
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

bool CommandRegistry::add(Factory factory) {
    factories().push_back(factory);
    return true;
}

std::vector<std::unique_ptr<Command>> CommandRegistry::createAll() {
    std::vector<std::unique_ptr<Command>> commands;
    for (Factory factory : factories())
        commands.push_back(factory());
    std::sort(commands.begin(), commands.end(),
              [](const auto& a, const auto& b) { return a->name() < b->name(); });
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
    if (!TarnDeviceMngr::m_pMngr)
        loadWith([] { TarnDeviceMngr::getInstance(TarnDeviceMngr::BrokenFamilies::Skip); });
    return *TarnDeviceMngr::m_pMngr;
}

void Context::loadWith(const std::function<void()>& load) {
    using tarn::vyxpn::TarnDeviceMngr;
    requireData();
    verboseLoad = verbose;
    installProgress();
    try {
        load();
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
        std::cerr << "devctrl: " << familyOf(failure) << " not loaded: " << failure.what() << '\n';
    tarn::vyxpn::StringList installed;
    TarnDeviceMngr::baseGetAllPMs(installed);
    if (installed.empty())
        std::cerr << "devctrl: no families installed in "
                  << tarn::vyxpn::util::escapedForMessage(
                         BaseSystem::getDataPath().absolutePath().toStdString())
                  << '\n';
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
bool wantsJson(const std::vector<std::string>& args) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--json" || args[i] == "--format=json" ||
            (args[i] == "--format" && i + 1 < args.size() && args[i + 1] == "json"))
            return true;
    }
    return false;
}

// The first argument that is neither an option nor the value of --data: what
// the user meant as the command.
std::string firstWord(const std::vector<std::string>& args) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--data" || args[i] == "--format")
            ++i;
        else if (!args[i].empty() && args[i][0] != '-')
            return args[i];
    }
    return "";
}

// The global options as the help of every command lists them, taken from
// the top level so that a new global option appears everywhere.
std::string globalOptionsText(const CLI::App& app) {
    std::string text = "Global options (before or after the command):\n";
    for (const CLI::Option* option : app.get_options()) {
        std::string names = option->get_name(false, true);
        if (names.find("help") != std::string::npos)
            continue;
        if (names == "--version")
            continue;
        // Flags have no type name; options that take a value show it.
        if (!option->get_type_name().empty())
            names += " " + option->get_type_name();
        text += "  " + names;
        text += std::string(names.size() < 22 ? 24 - names.size() : 2, ' ');
        text += option->get_description() + "\n";
    }
    return text;
}

// Keeps each command's own footer, then adds the global options to it.
void addGlobalOptionsToHelp(CLI::App& command, const std::string& globals,
                            std::map<const CLI::App*, std::string>& ownFooters) {
    const std::string own = command.get_footer();
    ownFooters[&command] = own;
    command.footer(own.empty() ? globals : own + "\n\n" + globals);
    for (CLI::App* nested : command.get_subcommands({}))
        addGlobalOptionsToHelp(*nested, globals, ownFooters);
}

ToolDescription::ToolDescription() : ToolDescription(std::vector<std::string>{}) {}

ToolDescription::ToolDescription(const std::vector<std::string>& args)
    : app(kToolSummary, "devctrl") {
    app.require_subcommand(1, 1);
    app.fallthrough();
    app.add_option("--data", dataDir,
                   "Data directory of the installation to read (overrides DEVCTRL_DATA_DIR; "
                   "default: the sample installation)")
        ->type_name("DIR");
    app.add_flag("--json", json, "Print results as JSON (short for --format json)");
    app.add_option("--format", formatName,
                   "Output format: lines (default), table (aligned, headed), csv or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember(formatNames()));
    app.set_version_flag("--version", std::string("devctrl ") + tarn::vyxpn::libraryVersion(),
                         "Print the version and exit");
    app.add_flag("-q,--quiet", quiet, "Do not print the library's load traces");
    app.add_flag("-v,--verbose", verbose,
                 "Also print the load traces of families switched off on purpose "
                 "(PM_ENABLE not true)");
    commands = CommandRegistry::createAll();
    const bool namesACommand =
        std::any_of(commands.begin(), commands.end(), [&args](const auto& command) {
            return std::find(args.begin(), args.end(), command->name()) != args.end();
        });
    const std::string globals = globalOptionsText(app);
    for (const auto& command : commands) {
        if (namesACommand && std::find(args.begin(), args.end(), command->name()) == args.end())
            continue;
        CLI::App* sub = app.add_subcommand(command->name(), command->summary());
        command->configure(*sub);
        addGlobalOptionsToHelp(*sub, globals, ownFooters);
        bySubcommand[sub] = command.get();
    }
    // Set last, so that no command inherits it.
    app.footer(std::string("Run 'devctrl COMMAND --help' for a command's arguments.\n\n") +
               kExitStatusText + "\n" + kEnvironmentText);
}

int runCommandLine(const std::vector<std::string>& args) {
    if (!args.empty() && args[0] == "__complete") {
        // The entry point of the completion scripts: not a command, so that
        // the words typed so far are never parsed as this call's options.
        const ToolDescription everything;
        for (const std::string& candidate :
             completionsFor(everything, std::vector<std::string>(args.begin() + 1, args.end())))
            std::cout << candidate << '\n';
        return 0;
    }
    ToolDescription tool(args);
    CLI::App& app = tool.app;
    try {
        // CLI11 takes the arguments last first.
        app.parse(std::vector<std::string>(args.rbegin(), args.rend()));
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0)
            return app.exit(e);
        ErrorPrinter error{wantsJson(args)};
        // Point at the help of the command that was being read, if any.
        std::string help = "devctrl";
        for (const CLI::App* sub : app.get_subcommands())
            help += " " + sub->get_name();
        const std::string unknown = help == "devctrl" ? firstWord(args) : "";
        if (!unknown.empty()) {
            tarn::vyxpn::NearNames near(unknown);
            for (const auto& command : tool.commands)
                near.consider(command->name());
            return error(tarn::vyxpn::unknownNameMessage("command", unknown, near.best()) +
                             " (see '" + help + " --help')",
                         2);
        }
        return error(
            tarn::vyxpn::util::escapedForMessage(e.what()) + " (see '" + help + " --help')", 2);
    }
    const Format format = tool.json ? Format::Json : *parseFormat(tool.formatName);
    const ErrorPrinter error{format == Format::Json};
    if (tool.json && tool.formatName != "lines" && tool.formatName != "json")
        return error("--json and --format " + tool.formatName + " contradict each other", 2);

    if (!tool.dataDir.empty())
        setenv("DEVCTRL_DATA_DIR", tool.dataDir.c_str(), 1);
    installTraceHandler(tool.quiet);

    Output out(format);
    Context context{out, ""};
    context.verbose = tool.verbose;
    try {
        for (auto& [sub, command] : tool.bySubcommand) {
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
    } catch (const tarn::vyxpn::UnknownNameError& e) {
        // A name typed wrong: the user's to fix, with the nearest names.
        return error(e.what(), 1);
    } catch (const tarn::vyxpn::FamilyNotLoadedError& e) {
        // The load failure itself was named on standard error already.
        return error(e.what(), 1);
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

}  // namespace devctrl_tool

int main(int argc, char** argv) {
    using namespace devctrl_tool;
    restoreBrokenPipeDefault();
    // Every answer goes through one checked buffer: an answer cut short by a
    // write error must not end in a success status.
    CheckedStdout checked;
    std::streambuf* previous = std::cout.rdbuf(&checked);
    int status = runCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    std::cout.rdbuf(previous);
    const std::string writeError = checked.finish();
    if (!writeError.empty())
        status = ErrorPrinter{wantsJson(std::vector<std::string>(argv + 1, argv + argc))}(
            "cannot write the output: " + writeError, status == 0 ? 1 : status);
    return status;
}
