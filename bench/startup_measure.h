// SPDX-License-Identifier: MIT
#pragma once
// Times fresh getInstance() calls, each after an untimed preparation (which
// points the manager at the data to load), and counts the heap each load
// takes at its peak and holds afterwards.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>

#include "allocation_counter.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl_bench {

constexpr double kMegabyte = 1e6;

struct StartupHeap {
    std::size_t peak = 0;  // the most any one load held at once
    std::size_t held = 0;  // what the last loaded manager held
};

template <typename Prepare>
StartupHeap measureStartups(benchmark::State& state, Prepare prepare) {
    using tarn::vyxpn::TarnDeviceMngr;
    StartupHeap heap;
    for (auto _ : state) {
        state.PauseTiming();
        delete TarnDeviceMngr::m_pMngr;
        prepare();
        resetHeapPeak();
        const std::size_t before = heapBytesInUse();
        state.ResumeTiming();

        benchmark::DoNotOptimize(TarnDeviceMngr::getInstance());

        state.PauseTiming();
        heap.peak = std::max(heap.peak, heapBytesPeak() - before);
        heap.held = heapBytesInUse() - before;
        delete TarnDeviceMngr::m_pMngr;
        state.ResumeTiming();
    }
    return heap;
}

}  // namespace devctrl_bench
