// SPDX-License-Identifier: MIT
// Catalogue.export(): the whole catalogue, or one PM, as plain Python data.

#include "catalogue.h"
#include "devctrl/mngr/family_export.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_py {

namespace {

using tarn::vyxpn::SelectionNode;

py::list names(const std::vector<SelectionNode>& nodes) {
    py::list out;
    for (const auto& node : nodes)
        out.append(node.name);
    return out;
}

// {name: f(children)} for the nodes that have children: a level whose
// column the table lacks has none, and then no entry.
template <typename Below>
py::dict keyed(const std::vector<SelectionNode>& nodes, Below below) {
    py::dict out;
    for (const auto& node : nodes)
        if (!node.children.empty())
            out[py::str(node.name)] = below(node.children);
    return out;
}

py::dict familyDict(const std::string& family, const tarn::vyxpn::FamilyExport& data) {
    py::dict out;
    out["family"] = family;
    out["devices"] = names(data.devices);
    out["packages"] = keyed(data.devices, names);
    out["speeds"] =
        keyed(data.devices, [](const auto& packages) { return keyed(packages, names); });
    out["conditions"] = keyed(data.devices, [](const auto& packages) {
        return keyed(packages, [](const auto& speeds) { return keyed(speeds, names); });
    });
    py::list parts;
    for (const auto& part : data.parts) {
        py::dict entry;
        entry["name"] = part.name;
        for (const auto& [column, value] : part.fields)
            entry[py::str(tarn::vyxpn::exportedFieldKey(column))] = value;
        entry["obsolete"] = part.obsolete;
        py::dict items;
        for (const auto& [column, value] : part.items)
            items[py::str(column.data(), column.size())] = value;
        entry["items"] = items;
        parts.append(entry);
    }
    out["parts"] = parts;
    return out;
}

py::dict exportCatalogue(const Catalogue& catalogue, const std::optional<std::string>& pm,
                         bool obsolete, bool ascOnly) {
    auto session = catalogue.session();
    struct Family {
        std::string pm, family;
        tarn::vyxpn::FamilyExport data;
    };
    tarn::vyxpn::ExportScope scope;
    std::vector<Family> walked;
    callLibrary([&] {
        auto& mngr = session->mngr();
        scope = tarn::vyxpn::exportScope(mngr, pm ? &*pm : nullptr, obsolete, ascOnly);
        for (const std::string& code : scope.pms)
            walked.push_back(
                {code, tarn::vyxpn::TarnDeviceMngr::basePmToFamily(code),
                 tarn::vyxpn::exportFamily(*mngr.getFamilyFile(code), obsolete, ascOnly)});
    });
    py::dict out;
    out["families"] = py::cast(scope.families);
    py::dict byPm;
    for (const auto& family : walked)
        byPm[py::str(family.pm)] = familyDict(family.family, family.data);
    out["pms"] = byPm;
    return out;
}

}  // namespace

void bindExport(py::class_<Catalogue>& catalogue) {
    catalogue.def("export", &exportCatalogue, py::arg("pm") = py::none(), py::kw_only(),
                  py::arg("obsolete") = false, py::arg("asc_only") = false, R"doc(
The whole catalogue, or one PM, as plain data: ``{"families": [...], "pms":
{pm: {"family", "devices", "packages", "speeds", "conditions", "parts"}}}``.
Packages are keyed by device, speeds by device and package, conditions by
device, package and speed; each part is a dict of its name, its naming
fields (``device``, ``package``, ``speed``, ``condition``, ``suffix``,
``short_package``), ``obsolete`` and its custom ``items``. All lists are in
natural order; the filters act as in the other queries.
)doc");
}

}  // namespace devctrl_py
