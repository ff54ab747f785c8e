# SPDX-License-Identifier: MIT
# Installs the library, its headers, the tool, the sample data, a CMake package
# and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS devctrl EXPORT devctrlTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS devctrl_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The public headers, listed one by one: what is here is the interface, and
# a header left out (an index, a lock, a file writer) can change freely. All
# land under include/devctrl, the platform layer's as <devctrl/platform/...>.
set(DEVCTRL_PUBLIC_HEADERS
    devctrl.h
    device/device_obj.h
    mngr/data_check.h
    mngr/device_mngr.h
    mngr/load_progress.h
    mngr/near_names.h
    mngr/part_filter.h
    mngr/part_items.h
    mngr/part_owner_index.h
    mngr/part_search.h
    sds/asc_capacity.h
    sds/data_error.h
    sds/devstatus_flags.h
    sds/item_source.h
    sds/part_list_kind.h
    sds/sds_file.h
    sds/sds_file_section.h
    sds/table_stamp.h
    sds/write_result.h
    util/comparators.h
    util/export.h
    util/glob_match.h
    util/profile.h
    util/quote.h
    util/string_list.h
    util/string_utils.h
    util/tokenizer.h
    util/version.h)
set(DEVCTRL_PUBLIC_PLATFORM_HEADERS
    base_settings.h
    export.h
    pm_database.h
    pm_devkey.h
    pm_name_darray.h
    pm_pic.h
    ut_quote.h
    ut_strobj.h
    ut_trace.h)
foreach(header ${DEVCTRL_PUBLIC_HEADERS})
    get_filename_component(subdir ${header} DIRECTORY)
    install(FILES ${PROJECT_SOURCE_DIR}/devctrl/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/devctrl/${subdir})
endforeach()
list(TRANSFORM DEVCTRL_PUBLIC_PLATFORM_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/platform/)
install(FILES ${DEVCTRL_PUBLIC_PLATFORM_HEADERS}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/devctrl/platform)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${DEVCTRL_INSTALL_DATA_SUBDIR})

install(EXPORT devctrlTargets NAMESPACE devctrl::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/devctrl)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/devctrlConfig.cmake.in
    ${PROJECT_BINARY_DIR}/devctrlConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/devctrl)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/devctrlConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/devctrlConfig.cmake
              ${PROJECT_BINARY_DIR}/devctrlConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/devctrl)

file(RELATIVE_PATH DEVCTRL_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" DEVCTRL_PC_TO_PREFIX "${DEVCTRL_PC_TO_PREFIX}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/devctrl.pc.in ${PROJECT_BINARY_DIR}/devctrl.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/devctrl.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
