// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/mngr/part_search.h"
#include "devctrl/sds/sds_file.h"
#include "devctrl/util/quote.h"
#include "devctrl/util/string_utils.h"

namespace devctrl_tool {
namespace {

using tarn::vyxpn::util::toUpper;

// The part table holds the words; users may type either the word or the
// letter that part names carry (E for automotive).
std::string conditionWord(const std::string& given) {
    const std::string upper = toUpper(given);
    if (upper == "C" || upper == "COM")
        return "COM";
    if (upper == "I" || upper == "IND")
        return "IND";
    if (upper == "A" || upper == "E" || upper == "AUTO")
        return "AUTO";
    throw ToolError("unknown condition " + tarn::vyxpn::util::quotedForMessage(given) +
                    "; use C, I, A (or E), COM, IND or AUTO");
}

class PartsCommand : public Command {
  public:
    std::string name() const override { return "parts"; }
    std::string summary() const override {
        return "List the full part names of a PM, optionally filtered";
    }
    void configure(CLI::App& command) override {
        command.add_option("PM", m_pm, "PM code or family name")->required();
        command.add_option("PATTERN", m_patterns,
                           "Shell-style patterns (*, ?, [..]); a part is listed when it "
                           "matches any of them, in any letter case");
        command.add_option("--device", m_device, "Only parts of this device");
        command.add_option("--package", m_package, "Only parts in this package");
        command.add_option("--speed", m_speed, "Only parts of this speed grade");
        command.add_option("--condition", m_condition,
                           "Only parts of this condition: C, I, A/E or COM, IND, AUTO");
        command.add_option("--where", m_where,
                           "Only parts whose item satisfies EXPR, e.g. 'LUT>=20000' (repeat: "
                           "all must hold)");
        command
            .add_option("--columns", m_columns,
                        "Print these items per part, comma-separated, e.g. LUT,IO,'Pin Count'")
            ->delimiter(',');
        m_filters.addTo(command);
        command.footer(
            "EXPR is ITEM OP VALUE with OP one of = != < <= > >= and ~ (a glob). ITEM is any item "
            "of the part, read from the part, then its package, device and family, or one of "
            "Device, Package, Speed, Condition, PM, Family. Numbers compare as numbers, text "
            "without regard to case. An item no table of the family names is an error, with "
            "the names it may mean.\n"
            "Example: devctrl parts zr1a00 'ZR12-*BG*' --speed 6 --condition C\n"
            "Example: devctrl --format table parts zr2b00 --where 'LUT>=3520' --columns LUT,IO");
    }
    int run(Context& context) override {
        auto& mngr = context.mngrForPm(m_pm, m_filters.ascOnly);
        const std::string pm = tarn::vyxpn::requireLoadedPm(mngr, m_pm);
        const std::string condition = m_condition.empty() ? "" : conditionWord(m_condition);
        const tarn::vyxpn::TarnSDSFile& file = *mngr.getFamilyFile(pm);

        tarn::vyxpn::PartQuery query;
        query.pm = pm;
        query.patterns = m_patterns;
        query.where = m_where;
        query.withObsolete = m_filters.withObsolete;
        query.ascOnly = m_filters.ascOnly;
        tarn::vyxpn::StringList selected;
        try {
            tarn::vyxpn::requireKnownItemNames({&file}, m_columns, pm);
            for (tarn::vyxpn::FoundPart& part : tarn::vyxpn::searchParts(mngr, query)) {
                if (hasFieldFilter() && !matchesFields(file, part.name, condition))
                    continue;
                selected.push_back(std::move(part.name));
            }
        } catch (const tarn::vyxpn::PartFilterSyntaxError& e) {
            throw ToolError(e.what(), 2);
        }
        if (m_columns.empty())
            context.out.list(selected, "part");
        else
            printColumns(context, file, selected);
        return 0;
    }

  private:
    // One row per part: its name and the value of each chosen item.
    void printColumns(Context& context, const tarn::vyxpn::TarnSDSFile& file,
                      const tarn::vyxpn::StringList& parts) const {
        std::vector<std::string> header{"part"};
        header.insert(header.end(), m_columns.begin(), m_columns.end());
        std::vector<std::vector<std::string>> rows;
        QJsonArray json;
        for (const std::string& part : parts) {
            std::vector<std::string> row{part};
            QJsonObject items;
            for (const std::string& column : m_columns) {
                row.push_back(tarn::vyxpn::partValue(file, part, column));
                items.insert(qs(column), qs(row.back()));
            }
            rows.push_back(std::move(row));
            json.append(QJsonObject{{"part", qs(part)}, {"items", items}});
        }
        context.out.rows(header, rows, json);
    }

    bool hasFieldFilter() const {
        return !m_device.empty() || !m_package.empty() || !m_speed.empty() || !m_condition.empty();
    }
    // Names compare without regard to case; the table is upper case but
    // people type either.
    bool matchesFields(const tarn::vyxpn::TarnSDSFile& file, const std::string& part,
                       const std::string& condition) const {
        std::string device, package, speed, partCondition;
        if (!file.getNameByPart(part, device, package, speed, partCondition))
            return false;
        auto same = [](const std::string& wanted, const std::string& actual) {
            return wanted.empty() || toUpper(wanted) == toUpper(actual);
        };
        return same(m_device, device) && same(m_package, package) && same(m_speed, speed) &&
               same(condition, partCondition);
    }

    std::string m_pm, m_device, m_package, m_speed, m_condition;
    std::vector<std::string> m_patterns, m_where, m_columns;
    PartFilters m_filters;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PartsCommand)
