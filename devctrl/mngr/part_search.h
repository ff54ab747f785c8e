// SPDX-License-Identifier: MIT
#pragma once
// Finding parts: of one family or of every loaded family, by name pattern,
// by conditions on their items (part_filter.h) and by the obsolete and ASC
// filters of the list queries.

#include <string>
#include <vector>

#include "devctrl/util/export.h"

namespace tarn::vyxpn {

class TarnDeviceMngr;

struct DEVCTRL_API PartQuery {
    // A loaded PM code; empty for every loaded family.
    std::string pm;
    // Shell-style name patterns (* ? [...]), matched without regard to
    // letter case; a part passes when it matches any. None: every part.
    std::vector<std::string> patterns;
    // Conditions (see part_filter.h), all of which must hold.
    std::vector<std::string> where;
    // The filters of getAllPartsByPM: obsolete parts only when asked, and
    // with `ascOnly` only parts that can use ASC chips.
    bool withObsolete = false;
    bool ascOnly = false;
};

struct DEVCTRL_API FoundPart {
    std::string pm;
    std::string name;
};

// The parts the query selects. Families in the manager's PM order (byte-wise,
// as getFamilyFiles), the parts of each in natural order (sortNatural, as
// getAllPartsByPM). A name two families hold is found in each that passes it,
// its items read from that family.
//
// Checked before any part is looked at, so that a mistake is never an empty
// result: throws UnknownNameError (kind "PM") for a PM that is not loaded,
// PartFilterSyntaxError for a malformed condition and UnknownNameError (kind
// "item") for a name no searched family defines, each with suggestions.
// Raises std::out_of_range where the item lookup does.
DEVCTRL_API std::vector<FoundPart> searchParts(TarnDeviceMngr& mngr, const PartQuery& query);

}  // namespace tarn::vyxpn
