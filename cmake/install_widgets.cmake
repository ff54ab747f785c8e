# SPDX-License-Identifier: MIT
# Installs the widgets library, its headers and devctrl-select; hosts find it
# as find_package(devctrl COMPONENTS widgets) -> devctrl::widgets.
install(TARGETS devctrl_widgets EXPORT devctrlWidgetsTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS devctrl_select RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${DEVCTRL_WIDGETS_PUBLIC_HEADERS}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/devctrl/widgets)
install(EXPORT devctrlWidgetsTargets NAMESPACE devctrl::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/devctrl)
