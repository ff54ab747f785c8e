// SPDX-License-Identifier: MIT
#include "catalogue.h"

#include "devctrl/mngr/known_names.h"
#include "devctrl/mngr/name_translation.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/mngr/part_search.h"
#include "devctrl/sds/sds_file.h"

namespace devctrl_py {

using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

const std::shared_ptr<Session>& Catalogue::session() const {
    if (!m_session)
        throw py::value_error("the catalogue is closed");
    return m_session;
}

CheckResult checkName(const Session& session, const std::string& name) {
    const tarn::vyxpn::NameCheck check =
        callLibrary([&] { return tarn::vyxpn::checkName(session.mngr(), name); });
    CheckResult out{name, check.result, check.code, std::nullopt};
    if (check.result != std::string("unknown"))
        out.use = check.use;
    return out;
}

namespace {

// A str or an iterable of str, as the list arguments take either.
std::vector<std::string> stringsOf(const py::object& value) {
    if (value.is_none())
        return {};
    if (py::isinstance<py::str>(value))
        return {value.cast<std::string>()};
    return value.cast<std::vector<std::string>>();
}

// The enumeration queries share their filters and name checks.
struct Lists {
    const Session& session;
    bool obsolete, ascOnly;

    StringList devices(const std::string& pm) const {
        return callLibrary([&] {
            auto& mngr = session.mngr();
            StringList out;
            mngr.getDevices(tarn::vyxpn::requireLoadedPm(mngr, pm), out, obsolete, ascOnly);
            return out;
        });
    }
    StringList packages(const std::string& pm, const std::string& device) const {
        return callLibrary([&] {
            auto& mngr = session.mngr();
            const std::string code = tarn::vyxpn::requireLoadedPm(mngr, pm);
            tarn::vyxpn::requireSelection(mngr, code, device);
            StringList out;
            mngr.getPackages(code, device, out, obsolete, ascOnly);
            return out;
        });
    }
    StringList speeds(const std::string& pm, const std::string& device,
                      const std::string& package) const {
        return callLibrary([&] {
            auto& mngr = session.mngr();
            const std::string code = tarn::vyxpn::requireLoadedPm(mngr, pm);
            tarn::vyxpn::requireSelection(mngr, code, device, &package);
            StringList out;
            mngr.getSpeeds(code, device, package, out, obsolete, ascOnly);
            return out;
        });
    }
    StringList conditions(const std::string& pm, const std::string& device,
                          const std::string& package, const std::string& speed) const {
        return callLibrary([&] {
            auto& mngr = session.mngr();
            const std::string code = tarn::vyxpn::requireLoadedPm(mngr, pm);
            tarn::vyxpn::requireSelection(mngr, code, device, &package, &speed);
            StringList out;
            mngr.getOperations(code, device, package, speed, out, obsolete, ascOnly);
            return out;
        });
    }
};

}  // namespace

void bindCatalogue(py::module_& m) {
    py::class_<CheckResult>(m, "Check", "What a part name stands for today.")
        .def_readonly("name", &CheckResult::name, "The name that was checked.")
        .def_readonly("result", &CheckResult::result,
                      "'valid', 'replaced' (renamed or migrated), 'not recommended' or "
                      "'unknown'.")
        .def_readonly("code", &CheckResult::code,
                      "The library's result code: 0 valid, 1 unknown, 3 replaced, 4 not "
                      "recommended.")
        .def_readonly("use", &CheckResult::use,
                      "The name to use: the name itself when valid, the suggested one when "
                      "replaced or not recommended, None when unknown.")
        .def("__bool__", [](const CheckResult& c) { return c.result != "unknown"; })
        .def("__repr__", [](const CheckResult& c) {
            return "Check(name=" + py::repr(py::str(c.name)).cast<std::string>() + ", result='" +
                   c.result + "', use=" + py::repr(py::cast(c.use)).cast<std::string>() + ")";
        });

    auto catalogue = py::class_<Catalogue>(m, "Catalogue", R"doc(
The installed device catalogue, loaded once.

``Catalogue()`` reads the data directory the library chooses (the
``DEVCTRL_DATA_DIR`` environment variable, else the sample installation);
``Catalogue(data_dir=...)`` reads the given one. Loading releases the GIL and
reports each family through ``progress(pm, family, index, count)`` when given;
returning ``False`` from it stops the load with :class:`LoadCancelled`.

The library keeps one manager per process. Catalogues on the same directory
share it; opening one on another directory while a catalogue (or a Part
it made) on the first is alive raises :class:`CatalogueBusyError`. Close a
catalogue with :meth:`close` or a ``with`` block.

With ``skip_broken=True`` a family whose data are bad is left out and its
error kept in :attr:`load_failures`; by default it raises :class:`DataError`.
)doc");
    catalogue
        .def(py::init<const std::optional<std::string>&, const py::object&, bool>(),
             py::arg("data_dir") = py::none(), py::kw_only(), py::arg("progress") = py::none(),
             py::arg("skip_broken") = false)
        .def_property_readonly(
            "data_dir", [](const Catalogue& c) { return c.session()->dataDir(); },
            "The absolute data directory the catalogue was loaded from.")
        .def_property_readonly(
            "load_failures",
            [](const Catalogue& c) {
                py::list failures;
                py::object type = py::module_::import("devctrl._errors").attr("DataError");
                for (const auto& error : c.session()->loadFailures())
                    failures.append(type(error.what(), py::arg("pm") = error.pm(),
                                         py::arg("file") = error.file(),
                                         py::arg("key") = error.key(), py::arg("row") = error.row(),
                                         py::arg("problem") = error.problem()));
                return failures;
            },
            "The DataError of each family left out under skip_broken=True, in load order.")
        .def_property_readonly("closed", &Catalogue::closed, "Whether close() was called.")
        .def("close", &Catalogue::close,
             "Releases the catalogue; its methods raise ValueError afterwards. Parts it made "
             "stay usable.")
        .def("__enter__", [](py::object self) { return self; })
        .def("__exit__", [](Catalogue& c, py::args) { c.close(); })
        .def(
            "families",
            [](const Catalogue& c, bool obsolete, bool ascOnly) {
                auto session = c.session();
                return callLibrary([&] {
                    StringList out;
                    session->mngr().getAllFamilies(out, obsolete, ascOnly);
                    return out;
                });
            },
            py::kw_only(), py::arg("obsolete") = false, py::arg("asc_only") = false,
            "The family names with at least one part passing the filters, in natural order.")
        .def(
            "pms",
            [](const Catalogue& c, bool loadedOnly) {
                auto session = c.session();
                return callLibrary([&] {
                    StringList out;
                    if (loadedOnly) {
                        for (const auto& entry : session->mngr().getFamilyFiles())
                            out.push_back(entry.first);
                    } else {
                        TarnDeviceMngr::baseGetAllPMs(out);
                    }
                    return out;
                });
            },
            py::kw_only(), py::arg("loaded_only") = false,
            "The installed PM codes; with loaded_only=True those whose family loaded.")
        .def(
            "devices",
            [](const Catalogue& c, const std::string& pm, bool obsolete, bool ascOnly) {
                return Lists{*c.session(), obsolete, ascOnly}.devices(pm);
            },
            py::arg("pm"), py::kw_only(), py::arg("obsolete") = false, py::arg("asc_only") = false,
            "The devices of a PM (its code or family name), in natural order.")
        .def(
            "packages",
            [](const Catalogue& c, const std::string& pm, const std::string& device, bool obsolete,
               bool ascOnly) {
                return Lists{*c.session(), obsolete, ascOnly}.packages(pm, device);
            },
            py::arg("pm"), py::arg("device"), py::kw_only(), py::arg("obsolete") = false,
            py::arg("asc_only") = false, "The packages of a device.")
        .def(
            "speeds",
            [](const Catalogue& c, const std::string& pm, const std::string& device,
               const std::string& package, bool obsolete, bool ascOnly) {
                return Lists{*c.session(), obsolete, ascOnly}.speeds(pm, device, package);
            },
            py::arg("pm"), py::arg("device"), py::arg("package"), py::kw_only(),
            py::arg("obsolete") = false, py::arg("asc_only") = false,
            "The speed grades of a device in a package.")
        .def(
            "conditions",
            [](const Catalogue& c, const std::string& pm, const std::string& device,
               const std::string& package, const std::string& speed, bool obsolete, bool ascOnly) {
                return Lists{*c.session(), obsolete, ascOnly}.conditions(pm, device, package,
                                                                         speed);
            },
            py::arg("pm"), py::arg("device"), py::arg("package"), py::arg("speed"), py::kw_only(),
            py::arg("obsolete") = false, py::arg("asc_only") = false,
            "The operating conditions (COM, IND, AUTO) of a device, package and speed.")
        .def(
            "parts",
            [](const Catalogue& c, const std::optional<std::string>& pm, const py::object& pattern,
               const py::object& where, bool obsolete, bool ascOnly) {
                auto session = c.session();
                tarn::vyxpn::PartQuery query;
                query.patterns = stringsOf(pattern);
                query.where = stringsOf(where);
                query.withObsolete = obsolete;
                query.ascOnly = ascOnly;
                return callLibrary([&] {
                    auto& mngr = session->mngr();
                    if (pm)
                        query.pm = tarn::vyxpn::requireLoadedPm(mngr, *pm);
                    StringList names;
                    for (auto& found : tarn::vyxpn::searchParts(mngr, query))
                        names.push_back(std::move(found.name));
                    return names;
                });
            },
            py::arg("pm") = py::none(), py::arg("pattern") = py::none(),
            py::arg("where") = py::none(), py::kw_only(), py::arg("obsolete") = false,
            py::arg("asc_only") = false, R"doc(
Full part names, family by family in PM order, each family's in natural order.

``pm`` limits the search to one PM (code or family name). ``pattern`` is a
shell-style name pattern or a list of them (a part passes when it matches
any, in any letter case). ``where`` is a condition such as ``"LUT>=20000"``
or a list of them, all of which must hold: the same filter as the tool's
``--where``. An unknown PM or item raises :class:`UnknownNameError`, a
malformed condition :class:`FilterSyntaxError`.
)doc")
        .def(
            "filter_names",
            [](const Catalogue& c, const std::optional<std::string>& pm) {
                auto session = c.session();
                return callLibrary([&] {
                    auto& mngr = session->mngr();
                    std::vector<const tarn::vyxpn::TarnSDSFile*> families;
                    if (pm) {
                        families.push_back(
                            mngr.getFamilyFile(tarn::vyxpn::requireLoadedPm(mngr, *pm)));
                    } else {
                        for (const auto& entry : mngr.getFamilyFiles())
                            families.push_back(entry.second);
                    }
                    return tarn::vyxpn::filterNames(families);
                });
            },
            py::arg("pm") = py::none(), "Every name a where= condition may use, in natural order.")
        .def(
            "part",
            [](const Catalogue& c, const std::string& name) { return Part(c.session(), name); },
            py::arg("name"),
            "The part of a full name; UnknownNameError with the nearest names if none.")
        .def(
            "__contains__",
            [](const Catalogue& c, const std::string& name) {
                auto session = c.session();
                return callLibrary([&] { return session->mngr().exists(name); });
            },
            "Whether some loaded family knows the full part name.")
        .def(
            "check",
            [](const Catalogue& c, const std::string& name) {
                return checkName(*c.session(), name);
            },
            py::arg("name"),
            "Checks a name against the renamed, migrated and superseded names; unknown names "
            "give result 'unknown' rather than an error.")
        .def(
            "part_name",
            [](const Catalogue& c, const std::string& pm, const std::string& device,
               const std::string& package, const std::string& speed, std::string condition) {
                auto session = c.session();
                return callLibrary([&] {
                    auto& mngr = session->mngr();
                    const std::string code = tarn::vyxpn::requireLoadedPm(mngr, pm);
                    // The part table holds condition words; a letter is a shorthand.
                    if (condition.size() == 1)
                        condition = tarn::vyxpn::TarnSDSFile::getFullConditionName(condition[0]);
                    std::string part = mngr.getPartName(code, device, package, speed, condition);
                    if (!part.empty())
                        return part;
                    tarn::vyxpn::requireSelection(mngr, code, device, &package, &speed);
                    StringList known;
                    mngr.getOperations(code, device, package, speed, known, true, false);
                    tarn::vyxpn::requireListed("condition", condition, known, code);
                    throw tarn::vyxpn::UnknownNameError(
                        "part", device + " " + package + " " + speed + " " + condition, {}, code);
                });
            },
            py::arg("pm"), py::arg("device"), py::arg("package"), py::arg("speed"),
            py::arg("condition"),
            "The full part name of a device, package, speed and condition (COM, IND, AUTO or "
            "the letter C, I, A/E).")
        .def(
            "translate",
            [](const Catalogue& c, const std::string& name, bool renamesOnly) {
                auto session = c.session();
                std::string newName = renamesOnly ? name : "";
                const int code = callLibrary(
                    [&] { return session->mngr().getNewFormatDeviceName(name, newName); });
                if (code == 0)
                    newName.clear();
                py::object translation = py::module_::import("devctrl._types").attr("Translation");
                return translation(code, tarn::vyxpn::nameTranslationMeaning(code),
                                   newName.empty() ? py::object(py::none()) : py::str(newName));
            },
            py::arg("name"), py::kw_only(), py::arg("renames_only") = false,
            "The current name of an old one: Translation(code, meaning, new_name); code 0 "
            "('no translation') has new_name None.");
    bindExport(catalogue);
}

}  // namespace devctrl_py
