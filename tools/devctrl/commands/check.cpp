// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/name_translation.h"

namespace devctrl_tool {
namespace {

class CheckCommand : public Command {
  public:
    std::string name() const override { return "check"; }
    std::string summary() const override {
        return "Check a part name against the renamed and superseded names";
    }
    void configure(CLI::App& command) override {
        command.add_option("name", m_name, "Part name as the user gave it")->required();
        command.footer(
            "Results: valid (the name stands as it is), unknown, replaced (renamed or migrated: "
            "use the name shown), not recommended (valid, but the name shown is advised). "
            "An engineering-sample name ending in ES resolves to its production part. Exit "
            "status 1 for an unknown name, otherwise 0.");
    }
    int run(Context& context) override {
        const tarn::vyxpn::NameCheck check = tarn::vyxpn::checkName(context.mngr(), m_name);
        std::vector<Field> fields{
            {"name", qs(m_name)}, {"result", qs(check.result)}, {"code", check.code}};
        if (!check.use.empty())
            fields.push_back({"use", qs(check.use)});
        context.out.record(fields);
        return check.code == tarn::vyxpn::TarnDeviceMngr::DeviceCheckUnknown ? 1 : 0;
    }

  private:
    std::string m_name;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::CheckCommand)
