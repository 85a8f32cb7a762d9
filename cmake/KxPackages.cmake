# Debian packages by `cpack -G DEB`; configure with the preset `package`.

if(KX_QT EQUAL 4) # Debian has none that a package could depend on
  set(CPACK_GENERATOR DEB)
  set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/KxNoPackages.cmake")
  include(CPack)
  return()
endif()

set(KX_DOCS_SITE "" CACHE PATH "Where docs/build made the site; a package of it is made then")

set(CPACK_PACKAGE_NAME tarvelan-kx-series)
set(CPACK_PACKAGE_CONTACT "tarvelan KX series maintainers <maintainers@tarvelan.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development)
if(KX_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL kxruntime tools)
endif()
set(KX_HAS_WINDOW OFF) # Debian has Qwt for Qt 5 alone
if(KX_BUILD_TOOLS AND KX_BUILD_WINDOW AND KX_QT EQUAL 5)
  set(KX_HAS_WINDOW ON)
  list(APPEND CPACK_COMPONENTS_ALL window)
endif()
if(KX_DOCS_SITE)
  list(APPEND CPACK_COMPONENTS_ALL documentation)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
# With a revision ours and the packaging's changelog are two files. A distribution's own
# package of the same version would begin at 1 and be the newer one.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0.0)
set(KX_PACKAGE_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
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
  "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${KX_PACKAGE_VERSION})")
# It loads the driver, which no tool sees.
set(CPACK_DEBIAN_KXRUNTIME_PACKAGE_NAME libkxruntime${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_KXRUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_KXRUNTIME_PACKAGE_DEPENDS "${runtime_of_same_version}")
set(CPACK_DEBIAN_KXRUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/packaging/triggers")
set(CPACK_COMPONENT_KXRUNTIME_DESCRIPTION "runtime of panels for KX series controllers: library
A panel's program links this library to poll, read and write KX series
programmable controllers through their driver, which it loads, on a serial
line or a network gateway, and to transfer recipes.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtarvelan-kx-series-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(qt5_headers qtbase5-dev)
set(qt6_headers qt6-base-dev)
set(needed "${runtime_of_same_version}")
if(KX_BUILD_TOOLS)
  list(APPEND needed "${CPACK_DEBIAN_KXRUNTIME_PACKAGE_NAME} (= ${KX_PACKAGE_VERSION})")
  list(APPEND qt5_headers libqt5serialport5-dev)
  list(APPEND qt6_headers qt6-serialport-dev)
endif()
list(JOIN needed ", " needed)
list(JOIN qt${KX_QT}_headers ", " headers)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${needed}, ${headers}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS libtarvelan-kx-series-doc)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Modbus RTU driver for KX series controllers: headers
Headers, CMake packages and pkg-config files for writing a runtime that
loads the driver for KX series programmable controllers, or links
libkxruntime, which does.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tarvelan-kx-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
# Qt loads its plug-in for SQLite, which no tool sees; recording to a table does without.
set(qt5_sqlite libqt5sql5-sqlite)
set(qt6_sqlite libqt6sql6-sqlite)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime_of_same_version}, ${qt${KX_QT}_sqlite}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "tools for KX series controllers on Modbus RTU
kxhost watches, reads and writes the memory of a KX series programmable
controller, records values, transfers recipes and scans a line. kxsim is a
simulated controller.")

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME tarvelan-kx-panel)
set(CPACK_DEBIAN_WINDOW_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "${runtime_of_same_version}, libqt5sql5-sqlite")
# For desktops without X, for Qt's own texts in the user's language, and for the pages and programs
# that the manual page names.
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "qttranslations5-l10n, qtwayland5")
set(CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS "libtarvelan-kx-series-doc, tarvelan-kx-tools")
set(CPACK_COMPONENT_WINDOW_DESCRIPTION "window on KX series controllers on Modbus RTU
kxpanel shows the values of KX series programmable controllers, their trends,
and what happens on the line, while a machine is commissioned. It writes
values, and compares, sends and reads recipes.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME libtarvelan-kx-series-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_DEPENDS libjs-sphinxdoc) # see scripts/package
set(CPACK_COMPONENT_DOCUMENTATION_DESCRIPTION "Modbus RTU driver for KX series controllers: documentation
Guide, reference and register map for writing a runtime that loads the
driver for KX series programmable controllers, with examples.")

# A changed text is installed anew.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  CHANGELOG.md docs/man/kxhost.1 docs/man/kxpanel.1 docs/man/kxsim.1)
find_program(KX_GZIP gzip REQUIRED)
set(KX_PACKAGING "${CMAKE_CURRENT_BINARY_DIR}/packaging")
function(kx_compress file compressed)
  execute_process(COMMAND ${KX_GZIP} -9nc "${file}"
    OUTPUT_FILE "${KX_PACKAGING}/${compressed}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Each package brings the licence, the changelog and that of its packaging.
string(TIMESTAMP KX_CHANGELOG_DATE "%a, %d %b %Y 00:00:00 +0000" UTC)
configure_file(packaging/changelog.in packaging/changelog.Debian @ONLY)
kx_compress("${KX_PACKAGING}/changelog.Debian" changelog.Debian.gz)
kx_compress("${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md" changelog.gz)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(FILES "${KX_PACKAGING}/changelog.gz" "${KX_PACKAGING}/changelog.Debian.gz"
    DESTINATION ${documents} COMPONENT ${component})
  install(FILES LICENSE DESTINATION ${documents} RENAME copyright COMPONENT ${component})
endforeach()

if(KX_DOCS_SITE)
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME})
  install(DIRECTORY "${KX_DOCS_SITE}/" DESTINATION ${documents}/html COMPONENT documentation
    PATTERN .doctrees EXCLUDE PATTERN .buildinfo EXCLUDE)
  install(DIRECTORY docs/examples DESTINATION ${documents} COMPONENT documentation)
endif()

# Manual pages are installed compressed, too.
function(kx_install_manual page component)
  kx_compress("${CMAKE_CURRENT_SOURCE_DIR}/docs/man/${page}" ${page}.gz)
  install(FILES "${KX_PACKAGING}/${page}.gz"
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
endfunction()
if(KX_BUILD_TOOLS)
  kx_install_manual(kxhost.1 tools)
  kx_install_manual(kxsim.1 tools)
endif()
if(KX_HAS_WINDOW)
  kx_install_manual(kxpanel.1 window)
endif()

include(CPack)
