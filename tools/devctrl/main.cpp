// devctrl: ask the device catalogue from a shell or a script.

#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "platform/ut_trace.h"

namespace devctrl_tool {

namespace {
std::map<std::string, std::unique_ptr<Command>>& registry() {
    static std::map<std::string, std::unique_ptr<Command>> commands;
    return commands;
}

// Shows one line that counts the families as they load, when a person is
// watching standard error.
void installProgress() {
    if (!isatty(STDERR_FILENO))
        return;
    setGuiMsgHandler([count = 0](const char*) mutable {
        std::cerr << "\rdevctrl: loading family " << ++count << std::flush;
    });
}

void clearProgress() {
    if (isatty(STDERR_FILENO))
        std::cerr << "\r\033[K" << std::flush;
    setGuiMsgHandler(nullptr);
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

tarn::vyxpn::TarnDeviceMngr& Context::mngr() {
    if (!tarn::vyxpn::TarnDeviceMngr::m_pMngr) {
        installProgress();
        tarn::vyxpn::TarnDeviceMngr::getInstance();
        clearProgress();
    }
    return *tarn::vyxpn::TarnDeviceMngr::getInstance();
}

}  // namespace devctrl_tool

int main(int argc, char** argv) {
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
    bool quiet = false;
    app.add_option("--data", dataDir,
                   "Data directory of the installation to read (overrides DEVCTRL_DATA_DIR; "
                   "default: the sample installation)");
    app.add_flag("--json", json, "Print results as JSON");
    app.add_flag("-q,--quiet", quiet, "Do not print the library's load traces");
    app.footer("Run 'devctrl COMMAND --help' for a command's arguments.");

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
        std::cerr << "devctrl: " << e.what() << " (see 'devctrl --help')\n";
        return 2;
    }

    if (!dataDir.empty())
        setenv("DEVCTRL_DATA_DIR", dataDir.c_str(), 1);
    if (quiet)
        setDiagTraceHandler([](const char*, const char*) {});

    Output out(json);
    Context context{out};
    try {
        for (auto& [sub, command] : bySubcommand)
            if (sub->parsed())
                return command->run(context);
    } catch (const ToolError& e) {
        std::cerr << "devctrl: " << e.what() << '\n';
        return e.status();
    } catch (const std::exception& e) {
        std::cerr << "devctrl: error in the installed data: " << e.what() << '\n';
        return 3;
    }
    return 0;
}
