// SPDX-License-Identifier: MIT
#pragma once
// Installations of one family whose key data take an extreme but legal
// shape, for measuring that loading stays linear in time and bounded in
// memory however the data are laid out.

#include <cstddef>
#include <string>

namespace tarn::vyxpn::gen {

enum class HostileShape {
    HugeList,       // `count` devices, each with a package and a speed grade,
                    // one record per continuation line
    HugeLine,       // the same family with every list on one physical line
    Continuations,  // a small family plus one value of `count` continuation lines
    NoPackages,     // `count` devices and no PACKAGES or SPEEDS at all
    ManyPackages,   // one device with `count` packages, each with a grade
};

const char* nameOf(HostileShape shape);

// Writes the family (PM "hx1a00", family "HXL") into the empty or missing
// directory `directory`; returns the size of its family.key in bytes.
// Throws std::runtime_error naming a file that cannot be written.
std::size_t writeHostileShape(const std::string& directory, HostileShape shape, std::size_t count);

}  // namespace tarn::vyxpn::gen
