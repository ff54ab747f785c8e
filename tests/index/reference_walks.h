#pragma once
// Plain walks over the part tables that answer the selection queries the slow,
// obvious way. The library answers the same queries from indexes; tests
// compare the two. Nothing here calls the library's list or lookup methods:
// only the tables, isObsDevice, enableASC, the sort orders and the PM/family
// mapping.

#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_test::ref {

using Strings = std::vector<std::string>;

// Whether `part` of `file` passes the obsolete and ASC filters.
bool passes(const tarn::vyxpn::TarnSDSFile& file, const std::string& part, bool withObsolete,
            bool ascOnly);

// The distinct values of the column of `kind` over the parts, in key order,
// whose leading cells equal the given ones and that pass the filters. `list`
// is left as it is when the table lacks the wanted column, a match column or
// "Status". Unused trailing cells are ignored.
void familyList(const tarn::vyxpn::TarnSDSFile& file, tarn::vyxpn::PartListKind kind,
                const std::string& device, const std::string& package, const std::string& speed,
                Strings& list, bool withObsolete, bool ascOnly);

// The same list as users see it (natural order, packages by pin count);
// `list` untouched for an unloaded PM.
void sortedList(const tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                tarn::vyxpn::PartListKind kind, const std::string& device,
                const std::string& package, const std::string& speed, Strings& list,
                bool withObsolete, bool ascOnly);
void sortAsShown(tarn::vyxpn::PartListKind kind, Strings& list);

// Every part of the family that passes the filters, in key order.
Strings allParts(const tarn::vyxpn::TarnSDSFile& file, bool withObsolete, bool ascOnly);

// The families (sorted naturally) with at least one part passing the filters.
Strings allFamilies(const tarn::vyxpn::TarnDeviceMngr& mngr, bool withObsolete, bool ascOnly);

// The first part in key order whose four cells equal the given ones without
// regard to ASCII case; "" when none or when the PM or a column is missing.
std::string partName(const tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                     const std::string& device, const std::string& package,
                     const std::string& speed, const std::string& condition);

// The owner of a part name and its cells: the first family in PM order whose
// table has the four name columns and the part.
struct NameFields {
    bool found = false;
    std::string pm, device, package, speed, condition;
};
NameFields nameByPart(const tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part);

}  // namespace devctrl_test::ref
