// SPDX-License-Identifier: MIT
#include "catalogue.h"

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/part_items.h"
#include "devctrl/sds/item_source.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_py {

using tarn::vyxpn::TarnDeviceMngr;

Part::Part(std::shared_ptr<Session> owner, std::string partName)
    : session(std::move(owner)), name(std::move(partName)) {
    callLibrary([&] {
        auto& mngr = session->mngr();
        tarn::vyxpn::requireKnownPart(mngr, name);
        mngr.getNameByPart(name, pm, device, package, speed, condition);
        family = TarnDeviceMngr::basePmToFamily(pm);
    });
}

namespace {

py::object makeType(const char* name) {
    return py::module_::import("devctrl._types").attr(name);
}

tarn::vyxpn::TarnDeviceObj withChips(const Part& part, const std::vector<std::string>& asc) {
    tarn::vyxpn::TarnDeviceObj device(part.name);
    device.m_ascList = asc;
    return device;
}

py::dict items(const Part& part) {
    auto found = callLibrary([&] {
        auto& mngr = part.session->mngr();
        return tarn::vyxpn::getPartItems(*mngr.getFamilyFile(part.pm), part.name);
    });
    py::object item = makeType("Item");
    py::dict out;
    for (const auto& entry : found)
        out[py::str(entry.name)] = item(entry.value, tarn::vyxpn::itemOriginName(entry.origin));
    return out;
}

std::string itemValue(const Part& part, const std::string& item,
                      const std::optional<std::string>& defaultValue) {
    return callLibrary([&] {
        auto& mngr = part.session->mngr();
        // An item no table of the family names is a typing error unless a
        // default says what its absence means.
        if (!defaultValue) {
            std::vector<std::string> names;
            for (const auto* table : tarn::vyxpn::itemTables(*mngr.getFamilyFile(part.pm)))
                names.insert(names.end(), table->m_items.begin(), table->m_items.end());
            tarn::vyxpn::requireListed("item", item, names, "part " + part.name);
        }
        return mngr.getItemValue(item, part.name, defaultValue.value_or(""));
    });
}

py::object settings(const Part& part) {
    struct Flags {
        bool synplify, precision, icf, lst, bitgen;
        std::string synthesis;
    };
    const Flags flags = callLibrary([&] {
        auto& mngr = part.session->mngr();
        return Flags{mngr.enableSynplify(part.name), mngr.enablePrecision(part.name),
                     mngr.enableICF(part.name),      mngr.enableLST(part.name),
                     mngr.enableBitgen(part.name),   mngr.getDefaultSynthesis(part.name)};
    });
    return makeType("Settings")(flags.synplify, flags.precision, flags.synthesis, flags.icf,
                                flags.lst, flags.bitgen);
}

py::object asc(const Part& part) {
    struct Chips {
        int max;
        bool hasOnBoard, hasLinkable;
        std::map<std::string, int> onBoard;
        std::vector<std::string> linkable;
    };
    Chips chips = callLibrary([&] {
        auto& mngr = part.session->mngr();
        Chips found{mngr.getASCMaxNum(part.name), false, false, {}, {}};
        found.hasOnBoard = mngr.getInternalASCs(part.name, found.onBoard);
        found.hasLinkable = mngr.getSupportedASCs(part.name, found.linkable);
        return found;
    });
    return makeType("Asc")(chips.max,
                           chips.hasOnBoard ? py::cast(chips.onBoard) : py::object(py::none()),
                           chips.hasLinkable ? py::cast(chips.linkable) : py::object(py::none()));
}

py::object validate(const Part& part, const std::vector<std::string>& chips) {
    std::string message;
    const bool ok = callLibrary([&] {
        auto device = withChips(part, chips);
        return part.session->mngr().isValid(device, message);
    });
    return makeType("Validation")(ok, ok ? std::string("valid") : message);
}

tarn::vyxpn::KeyValueReport report(const Part& part, const std::vector<std::string>& chips) {
    return callLibrary([&] {
        auto& mngr = part.session->mngr();
        auto device = withChips(part, chips);
        // A chip the part cannot link has no place in its report.
        std::string refused;
        if (!mngr.checkLinkedASCs(device, refused))
            throw py::value_error(refused);
        tarn::vyxpn::KeyValueReport rows;
        mngr.calcDeviceData(device, rows);
        return rows;
    });
}

}  // namespace

void bindPart(py::module_& m) {
    py::class_<Part>(m, "Part", R"doc(
One full part name of the catalogue, split into its fields.

Made by :meth:`Catalogue.part`. The fields are read once; :attr:`items`,
:attr:`settings`, :attr:`asc` and the methods ask the loaded catalogue each
time. A Part keeps its catalogue's data loaded while it lives.
)doc")
        .def_readonly("name", &Part::name, "The full part name.")
        .def_readonly("pm", &Part::pm, "The PM code of the family that holds the part.")
        .def_readonly("family", &Part::family, "The family name of that PM.")
        .def_readonly("device", &Part::device, "The device, e.g. 'ZR12'.")
        .def_readonly("package", &Part::package, "The package, e.g. 'BG100'.")
        .def_readonly("speed", &Part::speed, "The speed grade.")
        .def_readonly("condition", &Part::condition, "The condition: COM, IND or AUTO.")
        .def_property_readonly("items", &items, R"doc(
Every item the part has a value for: a dict of name to Item(value, origin),
origin being the table the value is read from ('part', 'package', 'device',
'family' or 'part table'), in the order the lookup asks those tables.
)doc")
        .def("item", &itemValue, py::arg("name"), py::arg("default") = py::none(),
             "The value of one item as the lookup reads it. Without a default an item that no "
             "table of the family names raises UnknownNameError; with one, the default stands "
             "for a missing value.")
        .def_property_readonly("settings", &settings,
                               "Settings(synplify, precision, default_synthesis, icf, lst, "
                               "bitgen): which tools and steps apply to the part.")
        .def_property_readonly("asc", &asc,
                               "Asc(max, on_board, linkable): how many ASC chips the part can "
                               "use, the chips it has on board ({type: count}) and the types it "
                               "may link; on_board and linkable are None without data.")
        .def("report", &report, py::kw_only(), py::arg("asc") = std::vector<std::string>(),
             "The device data report as (name, value) rows: the device and package rows, then "
             "the ASC chip sums (on-board chips and those in asc together). A chip the part "
             "cannot link raises ValueError with the validation message.")
        .def("validate", &validate, py::kw_only(), py::arg("asc") = std::vector<std::string>(),
             "Validates the part with the ASC chips in asc linked: Validation(ok, message), "
             "true when ok.")
        .def(
            "check", [](const Part& p) { return checkName(*p.session, p.name); },
            "Whether the name was renamed or migrated or is not recommended: a Check.")
        .def("__eq__",
             [](const Part& a, const Part& b) { return a.name == b.name && a.pm == b.pm; })
        .def("__hash__", [](const Part& p) { return py::hash(py::str(p.name)); })
        .def("__str__", [](const Part& p) { return p.name; })
        .def("__repr__", [](const Part& p) {
            return "Part(" + py::repr(py::str(p.name)).cast<std::string>() + ", pm='" + p.pm + "')";
        });
}

}  // namespace devctrl_py
