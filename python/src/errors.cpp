// SPDX-License-Identifier: MIT
#include "errors.h"

#include <pybind11/stl.h>

#include <exception>
#include <string>

#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/sds/data_error.h"
#include "session.h"

namespace devctrl_py {

namespace {

namespace py = pybind11;

// Raises devctrl.<name>(*args, **kwargs) as the pending Python error.
void raise(const char* name, py::tuple args, py::dict kwargs = py::dict()) {
    py::object type = py::module_::import("devctrl._errors").attr(name);
    py::object error = type(*args, **kwargs);
    PyErr_SetObject(type.ptr(), error.ptr());
}

// A message fit for a script's user: the library's own messages pass; what
// a standard container or the runtime says about itself does not.
std::string userMessage(const char* what) {
    const std::string text = what ? what : "";
    if (text.empty() || text.find("::") != std::string::npos ||
        text.find("_M_") != std::string::npos)
        return "internal error while answering the query";
    return text;
}

void translate(std::exception_ptr pending) {
    try {
        std::rethrow_exception(pending);
    } catch (const py::error_already_set&) {
        throw;
    } catch (const py::builtin_exception&) {
        throw;
    } catch (const tarn::vyxpn::UnknownNameError& error) {
        raise("UnknownNameError", py::make_tuple(error.what()),
              py::dict(py::arg("kind") = error.kind(), py::arg("name") = error.name(),
                       py::arg("suggestions") = error.suggestions()));
    } catch (const tarn::vyxpn::DataError& error) {
        raise("DataError", py::make_tuple(error.what()),
              py::dict(py::arg("pm") = error.pm(), py::arg("file") = error.file(),
                       py::arg("key") = error.key(), py::arg("row") = error.row(),
                       py::arg("problem") = error.problem()));
    } catch (const tarn::vyxpn::PartFilterSyntaxError& error) {
        raise("FilterSyntaxError", py::make_tuple(error.what()));
    } catch (const CatalogueBusy& error) {
        raise("CatalogueBusyError", py::make_tuple(error.what()));
    } catch (const LoadCancelled& error) {
        raise("LoadCancelled", py::make_tuple(error.what()));
    } catch (const MissingDataDir& error) {
        raise("DataDirError", py::make_tuple(error.what()));
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::exception& error) {
        raise("Error", py::make_tuple(userMessage(error.what())));
    } catch (...) {
        raise("Error", py::make_tuple("internal error while answering the query"));
    }
}

}  // namespace

void registerErrorTranslation() {
    py::register_exception_translator(&translate);
}

}  // namespace devctrl_py
