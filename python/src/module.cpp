// SPDX-License-Identifier: MIT
// The compiled part of the devctrl Python package.
#include "catalogue.h"
#include "errors.h"

PYBIND11_MODULE(_devctrl, m) {
    m.doc() = "The compiled core of the devctrl package; import devctrl instead.";
    devctrl_py::registerErrorTranslation();
    devctrl_py::bindCatalogue(m);
    devctrl_py::bindPart(m);
    devctrl_py::bindIni(m);
}
