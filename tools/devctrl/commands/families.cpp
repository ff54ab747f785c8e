// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_tool {
namespace {

class FamiliesCommand : public Command {
  public:
    std::string name() const override { return "families"; }
    std::string summary() const override { return "List the loaded families in natural order"; }
    void configure(CLI::App& command) override {
        m_filters.addTo(command);
        command.footer(
            "A family is listed when it loaded and at least one of its parts passes the "
            "filters.");
    }
    int run(Context& context) override {
        StringList families;
        context.mngr().getAllFamilies(families, m_filters.withObsolete, m_filters.ascOnly);
        context.out.list(families, "family");
        return 0;
    }

  private:
    using StringList = tarn::vyxpn::StringList;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::FamiliesCommand)
