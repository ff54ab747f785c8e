// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/util/quote.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/pd_text_writer.h"
#include "platform/pd_util.h"

namespace devctrl_tool {
namespace {

QJsonArray strings(const PD_STRING_POOL& pool, const std::vector<std::uint32_t>& indices) {
    QJsonArray array;
    for (std::uint32_t index : indices)
        array.append(qs(pool.at(index)));
    return array;
}

QJsonObject sectionToJson(const PD_SECTION& section) {
    const PD_STRING_POOL& pool = section.pool();
    QJsonObject json{{"name", qs(section.name())}, {"kind", section.kind()}};
    if (auto* table = dynamic_cast<const PD_TABLE*>(&section)) {
        json.insert("columns", strings(pool, table->columns()));
        QJsonArray rows;
        for (const auto& row : table->GetRowList())
            rows.append(strings(pool, row));
        json.insert("rows", rows);
    } else {
        QJsonArray entries;
        for (const auto& [key, value] : section.entries())
            entries.append(QJsonArray{qs(pool.at(key)), qs(pool.at(value))});
        json.insert("entries", entries);
    }
    return json;
}

class PwdDumpCommand : public Command {
  public:
    std::string name() const override { return "pwd-dump"; }
    std::string summary() const override {
        return "Print a part data file, text or binary, in the text form";
    }
    void configure(CLI::App& command) override {
        command.add_option("FILE", m_file, "Part data file, text or binary")->required();
        command.footer(
            "The output reads back (with 'devctrl pwd-compile') to the same data, and dumping "
            "that again prints the same bytes.");
    }
    bool tabular() const override { return false; }
    int run(Context& context) override {
        PD_DATA data;
        if (PD_UTIL::IsBinaryFile(m_file.c_str())) {
            std::string bytes, why;
            if (!PD_UTIL::ReadWholeFile(m_file.c_str(), bytes, PD_BIN_MAX_FILE_SIZE))
                throw ToolError("cannot read " + tarn::vyxpn::util::escapedForMessage(m_file));
            if (!PD_DecodeBinary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                                 data, &why))
                throw ToolError(tarn::vyxpn::util::escapedForMessage(m_file) + ": " +
                                tarn::vyxpn::util::escapedForMessage(why));
        } else if (!data.LoadTxtFile(m_file.c_str())) {
            throw ToolError("cannot read " + tarn::vyxpn::util::escapedForMessage(m_file));
        }
        std::string text, why;
        if (!PD_FormatText(data, text, &why))
            throw ToolError(
                tarn::vyxpn::util::escapedForMessage(m_file) +
                " cannot be written as text: " + tarn::vyxpn::util::escapedForMessage(why));
        QJsonArray sections;
        for (const auto& section : data.GetSectionList())
            sections.append(sectionToJson(*section));
        context.out.print(sections, text);
        return 0;
    }

  private:
    std::string m_file;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PwdDumpCommand)
