// SPDX-License-Identifier: MIT
#include "completion.h"
#include "command.h"

namespace devctrl_tool {
namespace {

class CompletionCommand : public Command {
  public:
    std::string name() const override { return "completion"; }
    std::string summary() const override {
        return "Print the shell completion script for bash, zsh or fish";
    }
    void configure(CLI::App& command) override {
        command.add_option("SHELL", m_shell, "bash, zsh or fish")
            ->required()
            ->check(CLI::IsMember({"bash", "zsh", "fish"}));
        command.footer(
            "An installed devctrl puts the scripts where each shell looks "
            "(share/bash-completion/completions, share/zsh/site-functions, "
            "share/fish/vendor_completions.d). For a build tree, load one by hand: "
            "source <(devctrl completion bash). Commands, options, PMs, family names, "
            "devices, packages, speed grades and conditions complete; the names come from "
            "the installation that --data or DEVCTRL_DATA_DIR names.");
    }
    int run(Context&) override {
        std::cout << completionScript(m_shell);
        return 0;
    }

  private:
    std::string m_shell;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::CompletionCommand)
