# SPDX-License-Identifier: MIT
# Finds Debian's Python and pybind11 for the Python package. A Python on PATH
# from elsewhere (pyenv, a virtualenv) lacks Debian's pybind11 and pytest, so
# the system interpreter is preferred when it exists.
if(NOT DEFINED Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python3_EXECUTABLE /usr/bin/python3)
endif()
find_package(Python3 COMPONENTS Interpreter Development.Module QUIET)
if(Python3_FOUND)
    set(PYBIND11_FINDPYTHON ON)
    find_package(pybind11 CONFIG QUIET)
endif()
set(DEVCTRL_PYTHON_FOUND FALSE)
if(Python3_FOUND AND pybind11_FOUND)
    set(DEVCTRL_PYTHON_FOUND TRUE)
endif()

if(DEVCTRL_PYTHON_FOUND)
    # Where Debian's interpreter looks for packages of the prefix: the
    # version's dist-packages under /usr/local (and other prefixes, which
    # then go on PYTHONPATH), the shared one under /usr.
    if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set(python_site "lib/python3/dist-packages")
    else()
        set(python_site
            "lib/python${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR}/dist-packages")
    endif()
    set(DEVCTRL_PYTHON_INSTALL_DIR "${python_site}" CACHE STRING
        "Where the Python package is installed, relative to the prefix")
    file(RELATIVE_PATH DEVCTRL_PYTHON_TO_LIB
         "/${DEVCTRL_PYTHON_INSTALL_DIR}/devctrl" "/${CMAKE_INSTALL_LIBDIR}")
endif()
