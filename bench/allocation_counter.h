// SPDX-License-Identifier: MIT
#pragma once
// Heap bytes held through operator new, for comparing the memory two ways of
// building the same tables need. Counts what the allocator really hands out
// (usable size), for the library and the benchmark alike.

#include <cstddef>

namespace devctrl_bench {

std::size_t heapBytesInUse();
// The most held at any moment since the last reset.
std::size_t heapBytesPeak();
void resetHeapPeak();

}  // namespace devctrl_bench
