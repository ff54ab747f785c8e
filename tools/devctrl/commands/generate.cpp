// SPDX-License-Identifier: MIT
#include <iostream>
#include <stdexcept>

#include "command.h"
#include "generator/catalogue_generator.h"

namespace devctrl_tool {
namespace {

// Enough for a tenfold of the largest catalogue the benchmarks use.
constexpr long long kMaxParts = 10'000'000;

class GenerateCommand : public Command {
  public:
    std::string name() const override { return "generate"; }
    std::string summary() const override {
        return "Write a synthetic installation of about N parts (for benchmarks and tests)";
    }
    void configure(CLI::App& command) override {
        command.add_option("DIR", m_directory, "Data directory to create (must be empty)")
            ->required();
        command.add_option("--parts", m_parts, "About how many parts to generate")->required();
        command.add_option("--seed", m_seed, "Seed: the same seed and size give the same files");
        command.footer(
            "The catalogue has about N/60000 + 4 families (at least 5), PM codes zq0a00, "
            "zq1b00, ... and family names ZQ0, ZQ1, ...: generated families (one of them "
            "with about a tenth of the parts), ordered families listing their parts (about "
            "15% of them, one sold under two names, a few dozen names shared with a "
            "generated family), one generated family that keeps only its listed parts and "
            "one switched off. Families carry package aliases, exceptions, obsolete "
            "packages, ASC chips and resource figures in text or binary part data files; the "
            "shared device table defines the ASC chips and pqrndev.lst renames a few hundred "
            "parts. Point the library at DIR with --data DIR or DEVCTRL_DATA_DIR.");
    }
    int run(Context& context) override {
        if (m_parts < 1 || m_parts > kMaxParts)
            throw ToolError("--parts must be between 1 and " + std::to_string(kMaxParts));
        tarn::vyxpn::gen::GeneratorOptions options;
        options.parts = static_cast<std::size_t>(m_parts);
        options.seed = m_seed;
        options.progress = [](const std::string& line) {
            std::cerr << "devctrl: " << line << '\n';
        };
        tarn::vyxpn::gen::GeneratedCatalogue catalogue;
        try {
            catalogue = tarn::vyxpn::gen::generateCatalogue(m_directory, options);
        } catch (const std::exception& e) {
            throw ToolError(e.what());
        }
        context.out.record({{"directory", qs(m_directory)},
                            {"parts", static_cast<qint64>(catalogue.parts)},
                            {"pms", static_cast<qint64>(catalogue.pms.size())},
                            {"largest_pm", qs(catalogue.largestPm)},
                            {"largest_pm_parts", static_cast<qint64>(catalogue.largestPmParts)},
                            {"switched_off", qs(catalogue.disabledPm)}});
        return 0;
    }

  private:
    std::string m_directory;
    long long m_parts = 0;
    std::uint32_t m_seed = 1;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::GenerateCommand)
