// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <memory>

#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/util/quote.h"
#include "platform/pm_database.h"

namespace devctrl_tool {
namespace {

class KeyCommand : public Command {
  public:
    std::string name() const override { return "key"; }
    std::string summary() const override {
        return "Print one key of a PM's part-model key data (family.key)";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "Part-model code, e.g. zr1a00")->required();
        command.add_option("KEY", m_key, "Key name, case-sensitive, e.g. DEVICES")->required();
        command.footer("Exit status 1 when the PM is unknown or the key has no value.");
    }
    int run(Context& context) override {
        context.requireData();
        std::unique_ptr<char, decltype(&std::free)> value(
            tarn::vyxpn::TarnDeviceMngr::getValueByKey(m_pm.c_str(), m_key.c_str()), &std::free);
        if (!value) {
            if (!PM_DATABASE::buildMe()->findPm(m_pm.c_str(), 0))
                throw ToolError("unknown PM " + tarn::vyxpn::util::quotedForMessage(m_pm) +
                                " (see 'devctrl pms')");
            throw ToolError("PM " + tarn::vyxpn::util::quotedForMessage(m_pm) + " has no key " +
                            tarn::vyxpn::util::quotedForMessage(m_key));
        }
        context.out.value(value.get());
        return 0;
    }

  private:
    std::string m_pm;
    std::string m_key;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::KeyCommand)
