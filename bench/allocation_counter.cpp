// SPDX-License-Identifier: MIT
#include "allocation_counter.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_inUse{0};
std::atomic<std::size_t> g_peak{0};

void* countedAllocate(std::size_t size) {
    void* block = std::malloc(size ? size : 1);
    if (!block)
        throw std::bad_alloc();
    const std::size_t now = g_inUse += malloc_usable_size(block);
    std::size_t peak = g_peak.load(std::memory_order_relaxed);
    while (now > peak && !g_peak.compare_exchange_weak(peak, now)) {
    }
    return block;
}

void countedRelease(void* block) noexcept {
    if (!block)
        return;
    g_inUse -= malloc_usable_size(block);
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return countedAllocate(size);
}
void* operator new[](std::size_t size) {
    return countedAllocate(size);
}
void operator delete(void* block) noexcept {
    countedRelease(block);
}
void operator delete[](void* block) noexcept {
    countedRelease(block);
}
void operator delete(void* block, std::size_t) noexcept {
    countedRelease(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    countedRelease(block);
}

namespace devctrl_bench {

std::size_t heapBytesInUse() {
    return g_inUse.load();
}
std::size_t heapBytesPeak() {
    return g_peak.load();
}
void resetHeapPeak() {
    g_peak.store(g_inUse.load());
}

}  // namespace devctrl_bench
