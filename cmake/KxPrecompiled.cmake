# Qt's headers take longer to parse than the sources that read them. A build with tests,
# and that of ./run, parses them once for all; any other, such as the one that check-style
# looks at, shows that each source includes what it uses.

option(KX_PRECOMPILE "Precompile Qt's headers, as a build with tests always does" OFF)

# What most sources read, and no more: each source pays for all of it.
set(KX_CORE_HEADERS <QtCore/QObject> <QtCore/QStringList> <QtCore/QVector> <algorithm>
  <functional> <vector>)
# What many of the tools read besides, QtCore's JSON above all.
set(KX_TOOL_HEADERS <QtCore/QDateTime> <QtCore/QElapsedTimer> <QtCore/QFile> <QtCore/QHash>
  <QtCore/QJsonArray> <QtCore/QJsonObject> <QtCore/QMap> <QtCore/QMutex>
  <QtCore/QRegularExpression> <QtCore/QSet> <QtCore/QTextStream> <QtCore/QTimer> <chrono> <memory>
  <optional> <variant>)

if((BUILD_TESTING OR KX_PRECOMPILE) AND NOT KX_QT EQUAL 4)
  set(KX_PRECOMPILES ON)
else()
  set(KX_PRECOMPILES OFF)
endif()

# kx_add_core_headers(): the target kx_core_headers, for all that is compiled as C++17 and
# is optimised.
function(kx_add_core_headers)
  if(KX_PRECOMPILES)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/kx_core_headers.cpp")
    file(GENERATE OUTPUT "${source}" CONTENT "")
    add_library(kx_core_headers STATIC "${source}")
    set_target_properties(kx_core_headers PROPERTIES CXX_STANDARD 17)
    target_link_libraries(kx_core_headers PRIVATE Kx::Core)
    kx_add_warnings(kx_core_headers) # some of which are part of what is precompiled
    target_precompile_headers(kx_core_headers PRIVATE ${KX_CORE_HEADERS} ${KX_TOOL_HEADERS})
  endif()
endfunction()

# kx_precompile(TARGET): TARGET reads them.
function(kx_precompile target)
  if(KX_PRECOMPILES)
    target_precompile_headers(${target} REUSE_FROM kx_core_headers)
  endif()
endfunction()

# Most of a source's compiling is what it includes, so several of a library are compiled as one.
# ./test builds so; other builds show that each source stands alone.
option(KX_UNITY "Compile sources of the tools together" OFF)
option(KX_UNITY_DRIVER "With KX_UNITY those of the driver, too, which only clang-tidy looks at so" OFF)
set(KX_UNITY_SIZE 8 CACHE STRING "So many sources")

# kx_compile_together(TARGET [SOURCE...]): where that is wanted. The sources named have names of
# their own that others of TARGET have, too, and stay alone.
function(kx_compile_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${KX_UNITY} UNITY_BUILD_BATCH_SIZE ${KX_UNITY_SIZE}
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
