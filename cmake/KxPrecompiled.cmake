# Qt's headers take longer to parse than the sources that read them. A build with tests
# parses them once for all; any other, such as the one that check-style looks at, shows
# that each source includes what it uses.

# What most sources read, and no more: each source pays for all of it.
set(KX_CORE_HEADERS <QtCore/QObject> <QtCore/QStringList> <QtCore/QVector> <algorithm>
  <functional> <vector>)

if(BUILD_TESTING AND NOT KX_QT EQUAL 4)
  set(KX_PRECOMPILES ON)
else()
  set(KX_PRECOMPILES OFF)
endif()

# kx_add_core_headers(NAME): QtCore's headers for all that is compiled as C++17 and is
# optimised.
function(kx_add_core_headers name)
  if(KX_PRECOMPILES)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    file(GENERATE OUTPUT "${source}" CONTENT "")
    add_library(${name} STATIC "${source}")
    set_target_properties(${name} PROPERTIES CXX_STANDARD 17)
    target_link_libraries(${name} PRIVATE Kx::Core)
    kx_add_warnings(${name}) # some of which are part of what is precompiled
    target_precompile_headers(${name} PRIVATE ${KX_CORE_HEADERS})
  endif()
endfunction()

# kx_precompile(TARGET NAME): TARGET reads the headers of NAME.
function(kx_precompile target name)
  if(KX_PRECOMPILES)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()
