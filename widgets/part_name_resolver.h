// SPDX-License-Identifier: MIT
#pragma once
// What a typed or pasted part name stands for: a known part (in whatever
// letter case it was typed), an old name with the one to use instead, or an
// unknown name with the nearest known ones.

#include <string>
#include <vector>

namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl {

struct PartNameResolution {
    enum class Kind {
        Known,           // `part` is a loaded part, spelled as the catalogue has it
        Renamed,         // renamed or migrated: use `replacement`
        NotRecommended,  // `part` is valid, but `replacement` is recommended
        Unknown,         // nothing loaded knows it; see `suggestions`
    };
    Kind kind = Kind::Unknown;
    std::string part;
    std::string replacement;
    std::vector<std::string> suggestions;
};

// Exact names and upper-case spellings are answered from the manager's
// indexes; any other spelling scans every loaded part name once, so a caller
// asks when the user has finished typing rather than on each key.
PartNameResolution resolvePartName(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& typed);

}  // namespace devctrl
