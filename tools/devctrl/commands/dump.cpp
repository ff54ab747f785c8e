// SPDX-License-Identifier: MIT
#include <sstream>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "name_lookup.h"

namespace devctrl_tool {
namespace {

class DumpCommand : public Command {
  public:
    std::string name() const override { return "dump"; }
    std::string summary() const override { return "Print every table of a family, for diagnosis"; }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = resolvePm(mngr, m_pm);
        // Gathered first: with --json the dump is passed on as one string.
        std::ostringstream dump;
        mngr.printMe(pm, dump);
        context.out.print(qs(dump.str()), dump.str());
        return 0;
    }

  private:
    std::string m_pm;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::DumpCommand)
