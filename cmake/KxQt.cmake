# Qt of the chosen major version, under the target names Kx::Core, Kx::Test,
# Kx::SerialPort, Kx::Network, Kx::Sql, Kx::Widgets and, of Qt 5, Kx::Svg.

set(KX_QT_COMPONENTS Core)
if(BUILD_TESTING)
  list(APPEND KX_QT_COMPONENTS Test)
endif()
if(KX_BUILD_TOOLS)
  list(APPEND KX_QT_COMPONENTS SerialPort Network Sql)
endif()
if(KX_BUILD_WINDOW)
  list(APPEND KX_QT_COMPONENTS Widgets)
  if(KX_QT EQUAL 5) # with the plots
    list(APPEND KX_QT_COMPONENTS Svg)
  endif()
endif()

if(KX_QT EQUAL 4)
  list(TRANSFORM KX_QT_COMPONENTS PREPEND Qt OUTPUT_VARIABLE modules)
  find_package(Qt4 4.8 REQUIRED ${modules})
  foreach(component IN LISTS KX_QT_COMPONENTS)
    add_library(Kx::${component} ALIAS Qt4::Qt${component})
  endforeach()
elseif(KX_QT EQUAL 5 OR KX_QT EQUAL 6)
  find_package(Qt${KX_QT} REQUIRED COMPONENTS ${KX_QT_COMPONENTS})
  foreach(component IN LISTS KX_QT_COMPONENTS)
    add_library(Kx::${component} ALIAS Qt${KX_QT}::${component})
  endforeach()
else()
  message(FATAL_ERROR "KX_QT must be 4, 5 or 6, not '${KX_QT}'")
endif()

# Old panel toolchains take C++11; Qt 6 demands C++17.
if(KX_QT EQUAL 6)
  set(KX_DRIVER_CXX_STANDARD 17)
else()
  set(KX_DRIVER_CXX_STANDARD 11)
endif()
