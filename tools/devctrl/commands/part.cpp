// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/part_items.h"

namespace devctrl_tool {
namespace {

class PartCommand : public Command {
  public:
    std::string name() const override { return "part"; }
    std::string summary() const override {
        return "Split a full part name into PM, family, device, package, speed and condition";
    }
    void configure(CLI::App& command) override {
        command.add_option("PART", m_part, "Full part name, exactly as listed")->required();
        command.add_flag("--all-items", m_allItems,
                         "Print every item of the part with its value and where it comes from");
        command.footer(
            "A name known to two families belongs to the PM whose code sorts first. With "
            "--all-items, each item the part has a value for, in lookup order, with its source: "
            "part (its own row), package, device, family or part table (the generated fields "
            "of its name); with --json they follow the fields as \"items\".");
    }
    int run(Context& context) override {
        using tarn::vyxpn::TarnDeviceMngr;
        auto& mngr = context.mngrForParts({m_part});
        tarn::vyxpn::requireKnownPart(mngr, m_part);
        std::string pm, device, package, speed, condition;
        mngr.getNameByPart(m_part, pm, device, package, speed, condition);
        const std::vector<Field> fields{{"part", qs(m_part)},
                                        {"pm", qs(pm)},
                                        {"family", qs(TarnDeviceMngr::basePmToFamily(pm))},
                                        {"device", qs(device)},
                                        {"package", qs(package)},
                                        {"speed", qs(speed)},
                                        {"condition", qs(condition)}};
        if (!m_allItems) {
            context.out.record(fields);
            return 0;
        }
        std::vector<std::vector<std::string>> rows;
        QJsonArray items;
        for (const tarn::vyxpn::PartItem& item : tarn::vyxpn::getPartItems(mngr, m_part)) {
            const char* source = tarn::vyxpn::itemOriginName(item.origin);
            rows.push_back({item.name, item.value, source});
            items.append(QJsonObject{
                {"name", qs(item.name)}, {"value", qs(item.value)}, {"source", source}});
        }
        QJsonObject json;
        for (const Field& field : fields)
            json.insert(qs(field.key), field.value);
        json.insert("items", items);
        context.out.rows({"item", "value", "source"}, rows, json);
        return 0;
    }

  private:
    std::string m_part;
    bool m_allItems = false;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PartCommand)
