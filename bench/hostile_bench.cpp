// Start-up on one family whose key data take an extreme shape: time and peak
// memory must grow linearly with the size of the data.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

#include "allocation_counter.h"
#include "generator/hostile_shapes.h"
#include "devctrl/mngr/device_mngr.h"
#include "platform/ut_trace.h"

namespace devctrl_bench {
namespace {

using tarn::vyxpn::TarnDeviceMngr;
using tarn::vyxpn::gen::HostileShape;

constexpr double kMegabyte = 1e6;

struct ShapeDirectory {
    std::string path;
    std::size_t keyBytes = 0;
};

// Written once per shape and size; removed at exit.
const ShapeDirectory& shapeDirectory(HostileShape shape, std::size_t count) {
    static std::map<std::pair<int, std::size_t>, ShapeDirectory> written;
    static const std::string root = [] {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "devctrl-hostile-XXXXXX").string();
        std::string made = mkdtemp(pattern.data());
        std::atexit([] { std::filesystem::remove_all(root); });
        return made;
    }();
    auto& entry = written[{static_cast<int>(shape), count}];
    if (entry.path.empty()) {
        entry.path = root + "/" + nameOf(shape) + "-" + std::to_string(count);
        entry.keyBytes = tarn::vyxpn::gen::writeHostileShape(entry.path, shape, count);
    }
    return entry;
}

void BM_HostileStartup(benchmark::State& state) {
    const auto shape = static_cast<HostileShape>(state.range(0));
    const auto count = static_cast<std::size_t>(state.range(1));
    const ShapeDirectory& directory = shapeDirectory(shape, count);
    setDiagTraceHandler([](const char*, const char*) {});
    std::size_t peak = 0, held = 0;
    for (auto _ : state) {
        state.PauseTiming();
        delete TarnDeviceMngr::m_pMngr;
        setenv("DEVCTRL_DATA_DIR", directory.path.c_str(), 1);
        resetHeapPeak();
        const std::size_t before = heapBytesInUse();
        state.ResumeTiming();

        benchmark::DoNotOptimize(TarnDeviceMngr::getInstance());

        state.PauseTiming();
        peak = std::max(peak, heapBytesPeak() - before);
        held = heapBytesInUse() - before;
        delete TarnDeviceMngr::m_pMngr;
        state.ResumeTiming();
    }
    state.SetLabel(nameOf(shape));
    state.counters["key_MB"] = static_cast<double>(directory.keyBytes) / kMegabyte;
    state.counters["peak_MB"] = static_cast<double>(peak) / kMegabyte;
    state.counters["held_MB"] = static_cast<double>(held) / kMegabyte;
}

void hostileArguments(benchmark::internal::Benchmark* benchmark) {
    for (int shape = 0; shape < 5; ++shape)
        for (long count : {25000L, 100000L})
            benchmark->Args({shape, count});
}

BENCHMARK(BM_HostileStartup)->Apply(hostileArguments)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace devctrl_bench
