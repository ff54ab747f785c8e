// SPDX-License-Identifier: MIT
#include "command.h"
#include "devctrl/util/quote.h"
#include "output_file.h"
#include "platform/pd_binary_format.h"
#include "platform/pd_data.h"
#include "platform/pd_util.h"

namespace devctrl_tool {
namespace {

class PwdCompileCommand : public Command {
  public:
    std::string name() const override { return "pwd-compile"; }
    std::string summary() const override {
        return "Convert a part data file from the text form to the binary form";
    }
    void configure(CLI::App& command) override {
        command.add_option("TEXT", m_text, "Part data file in the text form")->required();
        command.add_option("BINARY", m_binary, "Binary file to write; - for standard output")
            ->required();
        command.footer(
            "The binary file holds the same sections, entries, columns and cells; "
            "'devctrl pwd-dump' turns it back into text. Lines without '=' are reported and "
            "skipped.");
    }
    int run(Context& context) override {
        if (PD_UTIL::IsBinaryFile(m_text.c_str()))
            throw ToolError(tarn::vyxpn::util::escapedForMessage(m_text) +
                            " is in the binary form already");
        PD_DATA data;
        if (!data.LoadTxtFile(m_text.c_str()))
            throw ToolError("cannot read " + tarn::vyxpn::util::escapedForMessage(m_text));
        std::string bytes;
        if (!PD_EncodeBinary(data, bytes))
            throw ToolError("cannot write " + tarn::vyxpn::util::escapedForMessage(m_binary) +
                            ": too large for the binary form");
        writeOutputFile(m_binary, bytes);
        if (isStandardOutput(m_binary))
            return 0;  // the file is the output
        std::size_t rows = 0;
        for (const auto& section : data.GetSectionList())
            if (auto* table = dynamic_cast<const PD_TABLE*>(section.get()))
                rows += table->GetRowList().size();
        context.out.record({{"file", qs(m_binary)},
                            {"sections", static_cast<qint64>(data.GetNumOfSections())},
                            {"rows", static_cast<qint64>(rows)}});
        return 0;
    }

  private:
    std::string m_text, m_binary;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::PwdCompileCommand)
