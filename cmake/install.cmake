# Installs the library, its headers, the tool, the sample data, a CMake package
# and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS devctrl EXPORT devctrlTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS devctrl_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Public headers keep their layout: <devctrl/...> for the library and
# <platform/...> (found through include/devctrl) for the platform layer.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/devctrl/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/devctrl FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/devctrl/platform FILES_MATCHING PATTERN "*.h")
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

configure_file(${PROJECT_SOURCE_DIR}/cmake/devctrl.pc.in ${PROJECT_BINARY_DIR}/devctrl.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/devctrl.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
