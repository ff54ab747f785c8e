// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "platform/base_settings.h"

namespace devctrl_tool {
namespace {

class DefaultDeviceCommand : public Command {
  public:
    std::string name() const override { return "default-device"; }
    std::string summary() const override {
        return "Print the user's default device from the settings store";
    }
    void configure(CLI::App& command) override {
        command.footer(
            "The store is the INI file named by DEVCTRL_SETTINGS, or devctrl/settings.ini in "
            "the user's configuration directory; the key is 'Device'. Prints nothing (exit 0) "
            "when no default is set.");
    }
    int run(Context& context) override {
        std::string device = tarn::vyxpn::TarnDeviceMngr::getDefaultDevice();
        if (context.out.json() || !device.empty())
            context.out.value(device);
        return 0;
    }
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::DefaultDeviceCommand)
