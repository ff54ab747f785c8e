// SPDX-License-Identifier: MIT
// Start-up on one family whose key data take an extreme shape: time and peak
// memory must grow linearly with the size of the data.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <map>
#include <string>

#include "generator/hostile_shapes.h"
#include "platform/ut_trace.h"
#include "startup_measure.h"

namespace devctrl_bench {
namespace {

using tarn::vyxpn::gen::HostileShape;

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
    const StartupHeap heap =
        measureStartups(state, [&] { setenv("DEVCTRL_DATA_DIR", directory.path.c_str(), 1); });
    state.SetLabel(nameOf(shape));
    state.counters["key_MB"] = static_cast<double>(directory.keyBytes) / kMegabyte;
    state.counters["peak_MB"] = static_cast<double>(heap.peak) / kMegabyte;
    state.counters["held_MB"] = static_cast<double>(heap.held) / kMegabyte;
}

void hostileArguments(benchmark::internal::Benchmark* benchmark) {
    for (int shape = 0; shape < 5; ++shape)
        for (long count : {25000L, 100000L})
            benchmark->Args({shape, count});
}

BENCHMARK(BM_HostileStartup)->Apply(hostileArguments)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace devctrl_bench
