// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class InnerNameCommand : public Command {
  public:
    std::string name() const override { return "inner-name"; }
    std::string summary() const override {
        return "Inner device name of a full part name, as the back-end tools use it";
    }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name, e.g. ZR12-6BG100C")->required();
        command.footer(
            "The inner name is device, '-XX' in place of the speed grade, short package and "
            "suffix, without the condition letter.");
    }
    int run(Context& context) override {
        std::string inner;
        if (!context.mngrForParts({m_part}).getInnerDeviceName(m_part, inner))
            throw ToolError("unknown part " + tarn::vyxpn::util::escapedForMessage(m_part));
        context.out.value(inner);
        return 0;
    }

  private:
    std::string m_part;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::InnerNameCommand)
