// SPDX-License-Identifier: MIT
#include "command.h"
#include "man_page.h"
#include "tool_description.h"

namespace devctrl_tool {
namespace {

class ManCommand : public Command {
  public:
    std::string name() const override { return "man"; }
    std::string summary() const override {
        return "Print the manual page devctrl(1) in roff (read it with: devctrl man | man -l -)";
    }
    void configure(CLI::App& command) override {
        command.footer("An installed devctrl installs the page too: man devctrl.");
    }
    int run(Context&) override {
        const ToolDescription tool;
        std::cout << manPage(tool);
        return 0;
    }
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ManCommand)
