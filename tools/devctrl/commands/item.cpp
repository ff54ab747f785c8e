// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/sds/item_source.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_tool {
namespace {

class ItemCommand : public Command {
  public:
    std::string name() const override { return "item"; }
    std::string summary() const override { return "Print the value of one item of a part"; }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name")->required();
        command.add_option("ITEM", m_item, "Item name, e.g. Status or ASCMaxNum")->required();
        m_defaultGiven =
            command.add_option("--default", m_default, "Printed when the part has no value for it");
        command.footer(
            "The part's own row decides first, then the one table (package, device or family) "
            "that defines the item, then the generated part table. An item that no table of "
            "the family names is refused (exit status 1, with the names it may mean) unless "
            "--default is given.");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForParts({m_part});
        tarn::vyxpn::requireKnownPart(mngr, m_part);
        // An item no table of the part's family names is a typing error,
        // unless --default says what its absence means.
        if (m_defaultGiven->count() == 0)
            tarn::vyxpn::requireListed("item", m_item, itemNames(mngr), "part " + m_part);
        context.out.value(mngr.getItemValue(m_item, m_part, m_default));
        return 0;
    }

  private:
    // Every column of the tables the part's family reads items from.
    std::vector<std::string> itemNames(tarn::vyxpn::TarnDeviceMngr& mngr) const {
        std::string pm, device, package, speed, condition;
        mngr.getNameByPart(m_part, pm, device, package, speed, condition);
        std::vector<std::string> names;
        if (const auto* family = mngr.getFamilyFile(pm))
            for (const auto* table : tarn::vyxpn::itemTables(*family))
                names.insert(names.end(), table->m_items.begin(), table->m_items.end());
        return names;
    }

    std::string m_part, m_item, m_default;
    CLI::Option* m_defaultGiven = nullptr;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ItemCommand)
