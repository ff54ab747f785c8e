# SPDX-License-Identifier: MIT
# Installs the build into a scratch prefix, then configures, builds and runs a
# small consumer program against it through find_package(devctrl).
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${WORK_DIR}/prefix
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(rc)
    message(FATAL_ERROR "install failed: ${rc}")
endif()
# Headers live under include/devctrl alone, and those that are not part of
# the interface stay out.
set(include ${WORK_DIR}/prefix/include)
foreach(path platform devctrl/sds/part_index.h devctrl/util/profile_lock.h
             devctrl/util/profile_write.h devctrl/platform/file_writer.h)
    if(EXISTS ${include}/${path})
        message(FATAL_ERROR "installed, but not part of the interface: include/${path}")
    endif()
endforeach()
file(GLOB_RECURSE pc_files ${WORK_DIR}/prefix/*/devctrl.pc)
get_filename_component(pc_dir "${pc_files}" DIRECTORY)
get_filename_component(pc_libdir "${pc_dir}" DIRECTORY)
file(STRINGS "${pc_files}" cflags REGEX "^Cflags:")
if(NOT cflags STREQUAL "Cflags: -I\${includedir}")
    message(FATAL_ERROR "devctrl.pc adds more than include/: ${cflags}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/consumer
                        -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix
                        -G ${GENERATOR} -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM}
                        -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
                RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "configuring the consumer failed: ${rc}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "building the consumer failed: ${rc}")
endif()
# The consumer runs on the installed sample data: no DEVCTRL_DATA_DIR.
execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=DEVCTRL_DATA_DIR
                        ${WORK_DIR}/build/consumer
                RESULT_VARIABLE rc OUTPUT_VARIABLE out)
message("${out}")
if(rc)
    message(FATAL_ERROR "the consumer failed: ${rc}")
endif()
# A consumer built with nothing but pkg-config, as a Makefile would: the
# flags must point into the prefix the tree was installed to, not the one it
# was configured for.
execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pc_dir}
                        pkg-config --cflags --libs devctrl
                OUTPUT_VARIABLE pc_flags OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "pkg-config does not know the installed devctrl: ${rc}")
endif()
string(REGEX MATCH "-I(${WORK_DIR}[^ ]*)" pc_include "${pc_flags}")
get_filename_component(pc_include "${CMAKE_MATCH_1}" REALPATH)
get_filename_component(installed_include "${WORK_DIR}/prefix/include" REALPATH)
if(NOT pc_include STREQUAL installed_include)
    message(FATAL_ERROR "pkg-config points outside the install prefix: ${pc_flags}")
endif()
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
execute_process(COMMAND ${CXX_COMPILER} -std=c++17 -fPIC ${SOURCE_DIR}/tests/install/consumer/main.cpp
                        -o ${WORK_DIR}/pkg-config-consumer ${pc_flags}
                RESULT_VARIABLE rc ERROR_VARIABLE err)
if(rc)
    message(FATAL_ERROR "building the consumer through pkg-config failed: ${err}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=DEVCTRL_DATA_DIR
                        LD_LIBRARY_PATH=${pc_libdir} ${WORK_DIR}/pkg-config-consumer
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(rc)
    message(FATAL_ERROR "the consumer built through pkg-config failed: ${rc}")
endif()
# The installed tool finds its library and data too.
execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=DEVCTRL_DATA_DIR
                        ${WORK_DIR}/prefix/bin/devctrl pms
                RESULT_VARIABLE rc OUTPUT_VARIABLE out)
if(rc OR out STREQUAL "")
    message(FATAL_ERROR "the installed tool failed: ${rc}")
endif()
