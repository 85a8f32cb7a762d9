# Debian packages by `cpack -G DEB`; configure with the preset `package`.

set(CPACK_PACKAGE_NAME tarvelan-kx-series)
set(CPACK_PACKAGE_CONTACT "tarvelan KX series maintainers <maintainers@tarvelan.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development)
if(KX_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtarvelan-kx-series${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/packaging/triggers")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Modbus RTU driver for KX series controllers
A panel's runtime loads this library to read and write the memory
of KX series programmable controllers. It depends on QtCore alone.")

set(runtime_of_same_version
  "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtarvelan-kx-series-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_of_same_version}, qtbase5-dev")
if(KX_QT EQUAL 6)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime_of_same_version}, qt6-base-dev")
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Modbus RTU driver for KX series controllers: headers
Headers, CMake package and pkg-config file for writing a runtime that
loads the driver for KX series programmable controllers.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tarvelan-kx-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime_of_same_version}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "tools for KX series controllers on Modbus RTU
kxhost watches, reads and writes the memory of a KX series programmable
controller, transfers recipes and scans a line. kxsim is a simulated
controller.")

# Each package brings its changelog and copyright.
find_program(KX_GZIP gzip REQUIRED)
string(TIMESTAMP KX_CHANGELOG_DATE "%a, %d %b %Y 00:00:00 +0000" UTC)
configure_file(packaging/changelog.in packaging/changelog @ONLY)
execute_process(COMMAND ${KX_GZIP} -9nc "${CMAKE_CURRENT_BINARY_DIR}/packaging/changelog"
  OUTPUT_FILE "${CMAKE_CURRENT_BINARY_DIR}/packaging/changelog.gz" COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  install(FILES packaging/copyright "${CMAKE_CURRENT_BINARY_DIR}/packaging/changelog.gz"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}
    COMPONENT ${component})
endforeach()

# Manual pages are installed compressed, too.
if(KX_BUILD_TOOLS)
  foreach(page kxhost.1 kxsim.1)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/man/${page})
    execute_process(COMMAND ${KX_GZIP} -9nc "${CMAKE_CURRENT_SOURCE_DIR}/docs/man/${page}"
      OUTPUT_FILE "${CMAKE_CURRENT_BINARY_DIR}/packaging/${page}.gz" COMMAND_ERROR_IS_FATAL ANY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/packaging/${page}.gz"
      DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
  endforeach()
endif()

include(CPack)
