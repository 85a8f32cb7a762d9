# What `cmake --install` puts where. Components: runtime (the library), development
# (headers, CMake package, pkg-config file) and tools.

include(CMakePackageConfigHelpers)

set(KX_CMAKE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/tarvelan_kx_series)

install(TARGETS tarvelan_kx_series EXPORT tarvelan_kx_seriesTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  COMPONENT runtime NAMELINK_COMPONENT development)
foreach(header IN LISTS KX_PUBLIC_HEADERS)
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES ${header}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tarvelan_kx_series/${folder}
    COMPONENT development)
endforeach()

install(EXPORT tarvelan_kx_seriesTargets NAMESPACE tarvelan::
  DESTINATION ${KX_CMAKE_PACKAGE_DIR} COMPONENT development)
configure_package_config_file(cmake/tarvelan_kx_seriesConfig.cmake.in
  tarvelan_kx_seriesConfig.cmake INSTALL_DESTINATION ${KX_CMAKE_PACKAGE_DIR})
write_basic_package_version_file(tarvelan_kx_seriesConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/tarvelan_kx_seriesConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/tarvelan_kx_seriesConfigVersion.cmake"
  DESTINATION ${KX_CMAKE_PACKAGE_DIR} COMPONENT development)

# pkg-config knows QtCore of Qt 4 by a name without the version.
set(KX_QT_CORE_MODULE "Qt${KX_QT}Core")
if(KX_QT EQUAL 4)
  set(KX_QT_CORE_MODULE "QtCore")
endif()
file(RELATIVE_PATH KX_PREFIX_FROM_PC_FILE "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(cmake/tarvelan_kx_series.pc.in tarvelan_kx_series.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/tarvelan_kx_series.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
