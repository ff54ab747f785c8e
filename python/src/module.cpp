// SPDX-License-Identifier: MIT
// The compiled part of the devctrl Python package.
#include "catalogue.h"
#include "errors.h"

PYBIND11_MODULE(_devctrl, m) {
    m.doc() = "The compiled core of the devctrl package; import devctrl instead.";
    devctrl_py::registerErrorTranslation();
    // The classes are devctrl.Catalogue and so on to their users: that is
    // the name help() and the signatures show.
    pybind11::object ownName = m.attr("__name__");
    m.attr("__name__") = "devctrl";
    devctrl_py::bindCatalogue(m);
    devctrl_py::bindPart(m);
    m.attr("__name__") = ownName;
    devctrl_py::bindIni(m);
}
