// SPDX-License-Identifier: MIT
// Start-up at three catalogue sizes, and the floor it is measured against:
// building the same final part and resource tables from strings computed
// beforehand, the least any implementation keeping these tables must do.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "allocation_counter.h"
#include "bench_catalogues.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"
#include "startup_measure.h"

namespace devctrl_bench {
namespace {

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::TarnSDSFileSection;

void reportCatalogue(benchmark::State& state, const BenchCatalogue& catalogue,
                     std::size_t peakBytes) {
    state.counters["parts"] = static_cast<double>(catalogue.info.parts);
    state.counters["peak_MB"] = static_cast<double>(peakBytes) / kMegabyte;
}

// A fresh manager over the catalogue, as a host program creates it at start.
void BM_Startup(benchmark::State& state) {
    const BenchCatalogue& catalogue = benchCatalogue(static_cast<std::size_t>(state.range(0)));
    const StartupHeap heap = measureStartups(state, [&] { useCatalogue(catalogue); });
    reportCatalogue(state, catalogue, heap.peak);
}

// The rows of one table, in key order: the order that lets a std::map be
// built with a hint at its end, the cheapest build there is.
struct TableRows {
    std::vector<std::string> columns;
    std::vector<std::pair<std::string, std::vector<std::string>>> rows;
};

// Loaded once per size: repetitions reuse it.
const std::vector<TableRows>& finalTables(const BenchCatalogue& catalogue) {
    static std::map<std::string, std::vector<TableRows>> cache;
    auto cached = cache.find(catalogue.directory);
    if (cached != cache.end())
        return cached->second;
    useCatalogue(catalogue);
    std::vector<TableRows>& tables = cache[catalogue.directory];
    for (const auto& entry : TarnDeviceMngr::getInstance()->getFamilyFiles()) {
        for (const TarnSDSFileSection* table :
             {&entry.second->m_genericDevices, &entry.second->m_deviceInfo}) {
            tables.push_back({table->m_items, {table->m_datas.begin(), table->m_datas.end()}});
        }
    }
    delete TarnDeviceMngr::m_pMngr;
    return tables;
}

void BM_Floor(benchmark::State& state) {
    const BenchCatalogue& catalogue = benchCatalogue(static_cast<std::size_t>(state.range(0)));
    const std::vector<TableRows>& input = finalTables(catalogue);
    std::size_t peak = 0;
    for (auto _ : state) {
        state.PauseTiming();
        resetHeapPeak();
        const std::size_t before = heapBytesInUse();
        std::vector<TarnSDSFileSection> built(input.size());
        state.ResumeTiming();

        for (std::size_t i = 0; i < input.size(); ++i) {
            built[i].m_items = input[i].columns;
            auto& datas = built[i].m_datas;
            for (const auto& row : input[i].rows)
                datas.emplace_hint(datas.end(), row.first, row.second);
        }
        benchmark::DoNotOptimize(built.data());

        state.PauseTiming();
        peak = std::max(peak, heapBytesPeak() - before);
        built.clear();
        state.ResumeTiming();
    }
    reportCatalogue(state, catalogue, peak);
}

void catalogueSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10000)->Arg(100000)->Arg(1000000);
    bench->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
}

BENCHMARK(BM_Startup)->Apply(catalogueSizes);
BENCHMARK(BM_Floor)->Apply(catalogueSizes);

}  // namespace
}  // namespace devctrl_bench
