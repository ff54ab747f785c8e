#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "name_lookup.h"

namespace devctrl_tool {
namespace {

class ItemCommand : public Command {
  public:
    std::string name() const override { return "item"; }
    std::string summary() const override { return "Print the value of one item of a part"; }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name")->required();
        command.add_option("ITEM", m_item, "Item name, e.g. Status or ASCMaxNum")->required();
        command.add_option("--default", m_default, "Printed when the part has no value for it");
        command.footer(
            "The part's own row decides first, then the one table (package, device or family) "
            "that defines the item, then the generated part table.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngr();
        requireKnownPart(mngr, m_part);
        context.out.value(mngr.getItemValue(m_item, m_part, m_default));
        return 0;
    }

  private:
    std::string m_part, m_item, m_default;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ItemCommand)
