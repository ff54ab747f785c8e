// SPDX-License-Identifier: MIT
#pragma once
// The generated installations the benchmarks run on, written once per run
// into a temporary directory and removed at exit.

#include <cstddef>
#include <string>

#include "generator/catalogue_generator.h"

namespace devctrl_bench {

struct BenchCatalogue {
    std::string directory;
    tarn::vyxpn::gen::GeneratedCatalogue info;
};

// The catalogue of about `parts` parts (seed 1), generated on first use.
const BenchCatalogue& benchCatalogue(std::size_t parts);

// Points the library at a catalogue and drops any manager, so that the next
// getInstance() loads it afresh.
void useCatalogue(const BenchCatalogue& catalogue);

}  // namespace devctrl_bench
