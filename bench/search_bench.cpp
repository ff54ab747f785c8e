// SPDX-License-Identifier: MIT
// A part search filtered by conditions on items, as the tool's `parts
// --where`, a script's parts(where=...) and a dialog's search box run it, on
// the largest family of the million-part catalogue with every family loaded.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench_catalogues.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/part_search.h"

namespace devctrl_bench {
namespace {

using tarn::vyxpn::PartQuery;
using tarn::vyxpn::TarnDeviceMngr;

constexpr std::size_t kCatalogueParts = 1000000;

// The loaded catalogue; loaded again only when another benchmark switched.
const BenchCatalogue& loadedCatalogue() {
    const BenchCatalogue& catalogue = benchCatalogue(kCatalogueParts);
    const char* current = std::getenv("DEVCTRL_DATA_DIR");
    if (!TarnDeviceMngr::m_pMngr || !current || catalogue.directory != current) {
        useCatalogue(catalogue);
        TarnDeviceMngr::getInstance();
    }
    return catalogue;
}

struct SearchCase {
    const char* label;
    std::vector<std::string> patterns;
    std::vector<std::string> where;
};

const std::vector<SearchCase> kCases{
    {"LUT>=20000", {}, {"LUT>=20000"}},
    {"LUT>=20000, Pin Count>=256, Status=P", {}, {"LUT>=20000", "Pin Count>=256", "Status=P"}},
    {"Package~BG*, Condition=IND", {}, {"Package~BG*", "Condition=IND"}},
    {"pattern *BG* only", {"*BG*"}, {}},
};

void BM_SearchLargestFamily(benchmark::State& state) {
    const BenchCatalogue& catalogue = loadedCatalogue();
    const SearchCase& c = kCases[static_cast<std::size_t>(state.range(0))];
    PartQuery query;
    query.pm = catalogue.info.largestPm;
    query.patterns = c.patterns;
    query.where = c.where;
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    std::size_t found = searchParts(mngr, query).size();  // builds the filter flags once
    for (auto _ : state) {
        auto parts = searchParts(mngr, query);
        found = parts.size();
        benchmark::DoNotOptimize(parts.data());
    }
    state.SetLabel(std::string(c.label) + ": " + std::to_string(found) + " of " +
                   std::to_string(catalogue.info.largestPmParts) + " parts");
}
BENCHMARK(BM_SearchLargestFamily)
    ->ArgName("case")
    ->DenseRange(0, static_cast<int>(kCases.size()) - 1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace devctrl_bench
