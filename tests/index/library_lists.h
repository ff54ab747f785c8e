// SPDX-License-Identifier: MIT
#pragma once
// The library's side of the comparisons with reference_walks.h: the four
// filter settings and a family's list of one kind, as a host would ask.

#include <utility>

#include "index/reference_walks.h"

namespace devctrl_test {

inline const std::pair<bool, bool> kFilterSettings[] = {
    {false, false}, {true, false}, {false, true}, {true, true}};

// "stale" stays when the family leaves the list alone.
inline ref::StringList libraryList(const tarn::vyxpn::TarnSDSFile& file,
                                   tarn::vyxpn::PartListKind kind, const ref::Cells& c,
                                   bool obsolete, bool asc, bool sorted = false) {
    using tarn::vyxpn::PartListKind;
    ref::StringList list{"stale"};
    if (sorted)
        file.getSortedList(kind, c[0], c[1], c[2], list, obsolete, asc);
    else if (kind == PartListKind::Devices)
        file.getDevices(list, obsolete, asc);
    else if (kind == PartListKind::Packages)
        file.getPackages(c[0], list, obsolete, asc);
    else if (kind == PartListKind::Speeds)
        file.getSpeeds(c[0], c[1], list, obsolete, asc);
    else
        file.getOperations(c[0], c[1], c[2], list, obsolete, asc);
    return list;
}

}  // namespace devctrl_test
