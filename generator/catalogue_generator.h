// SPDX-License-Identifier: MIT
#pragma once
// Synthetic installations for benchmarks and tests: a complete data directory
// of generated families whose shape follows real catalogues (many generated
// families of very different sizes, ordered and listed families, a switched
// off one, exceptions, package aliases, both part data forms, ASC chips and
// renamed devices), the same bytes for the same seed and size.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tarn::vyxpn::gen {

struct GeneratorOptions {
    std::size_t parts = 10000;  // generated parts in all (approximate target)
    std::uint32_t seed = 1;     // same seed and size -> byte-identical files
    std::function<void(const std::string&)> progress;  // optional, one call per family
};

struct GeneratedCatalogue {
    std::size_t parts = 0;         // exact number of parts the library builds
    std::vector<std::string> pms;  // installed PM codes, byte-wise order
    std::string largestPm;         // PM with the most parts
    std::size_t largestPmParts = 0;
    std::vector<std::string> sampleParts;  // ~1000 existing part names spread over all families
    // Names built by two families (an ordered family lists them too); the
    // library gives each to the PM whose code sorts first.
    std::vector<std::string> sharedParts;
    std::string disabledPm;  // the family that is switched off
};

// Writes a complete data directory (creates it; refuses a non-empty one with
// std::runtime_error, as it does any file it cannot write).
GeneratedCatalogue generateCatalogue(const std::string& directory, const GeneratorOptions&);

}  // namespace tarn::vyxpn::gen
