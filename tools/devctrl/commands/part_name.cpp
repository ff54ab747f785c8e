// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"

namespace devctrl_tool {
namespace {

class PartNameCommand : public Command {
  public:
    std::string name() const override { return "part-name"; }
    std::string summary() const override {
        return "Full part name of a device, package, speed grade and condition";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("DEVICE", m_device, "Device name")->required();
        command.add_option("PACKAGE", m_package, "Package name")->required();
        command.add_option("SPEED", m_speed, "Speed grade")->required();
        command
            .add_option("CONDITION", m_condition,
                        "Condition as 'conditions' lists it (COM, IND, AUTO) or its letter "
                        "(C, I, A)")
            ->required();
        command.footer(
            "Fields are matched without regard to case. When several parts differ only in "
            "their suffix, the one whose name sorts first is printed.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        // The part table holds condition words; a letter is a shorthand for one.
        std::string condition = m_condition;
        if (condition.size() == 1)
            condition = tarn::vyxpn::TarnSDSFile::getFullConditionName(condition[0]);
        std::string part = mngr.getPartName(pm, m_device, m_package, m_speed, condition);
        using tarn::vyxpn::util::escapedForMessage;
        if (part.empty())
            throw ToolError("no part of " + escapedForMessage(pm) + " has device " +
                            escapedForMessage(m_device) + ", package " +
                            escapedForMessage(m_package) + ", speed " + escapedForMessage(m_speed) +
                            " and condition " + escapedForMessage(m_condition));
        context.out.value(part);
        return 0;
    }

  private:
    std::string m_pm, m_device, m_package, m_speed, m_condition;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PartNameCommand)
