// SPDX-License-Identifier: MIT
#include <QJsonValue>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class ExistsCommand : public Command {
  public:
    std::string name() const override { return "exists"; }
    std::string summary() const override {
        return "Exit 0 when a loaded family knows the full part name, else 1";
    }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name (letter case matters)")->required();
        command.footer(
            "Prints nothing, for use in scripts; with --json prints {\"part\", \"exists\"}.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        const bool known = context.mngrForParts({m_part}).exists(m_part);
        if (context.out.json())
            context.out.print(QJsonObject{{"part", qs(m_part)}, {"exists", known}}, "");
        return known ? 0 : 1;
    }

  private:
    std::string m_part;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ExistsCommand)
