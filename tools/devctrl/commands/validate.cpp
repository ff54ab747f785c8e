// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class ValidateCommand : public Command {
  public:
    std::string name() const override { return "validate"; }
    std::string summary() const override {
        return "Check a part with its linked ASC chips; prints \"valid\" or the reason";
    }
    void configure(CLI::App& command) override {
        command.add_option("part", m_part, "Full part name")->required();
        command.add_option("--asc", m_ascs, "Link an external ASC chip (repeat for more)");
        command.footer(
            "Exit status 0 when the choice is valid, 1 with the library's message when it "
            "is not.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        tarn::vyxpn::TarnDeviceObj device(m_part);
        device.m_ascList = m_ascs;
        std::string message;
        bool valid = context.mngrForParts({m_part}).isValid(device, message);
        std::string text = valid ? "valid" : message;
        QJsonObject json{{"valid", valid}};
        if (!valid)
            json.insert("message", qs(message));
        context.out.print(json, text + "\n");
        return valid ? 0 : 1;
    }

  private:
    std::string m_part;
    std::vector<std::string> m_ascs;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ValidateCommand)
