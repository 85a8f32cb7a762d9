# QtTest programs. There are many, and they take longer to build than to run: they share
# one precompiled header, are not optimised, and are linked by a quick linker.

include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=lld KX_HAS_LLD)
if(KX_HAS_LLD)
  set(KX_TEST_LINKER -fuse-ld=lld -Wl,--threads=1) # several programs are linked at once
else()
  check_linker_flag(CXX -fuse-ld=gold KX_HAS_GOLD)
  if(KX_HAS_GOLD)
    set(KX_TEST_LINKER -fuse-ld=gold)
  endif()
endif()
set(KX_TEST_SECONDS 120 CACHE STRING "Seconds after which a test has failed")

# What each source of a test reads first.
set(KX_FIRST_TEST_HEADERS <QtTest/QTest> <functional> <vector>)
if(KX_QT EQUAL 4)
  list(APPEND KX_FIRST_TEST_HEADERS "${PROJECT_SOURCE_DIR}/tests/support/qtest48.h")
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # It takes of what is precompiled what a source needs; g++ reads all of it for each.
  list(APPEND KX_FIRST_TEST_HEADERS ${KX_TOOL_HEADERS} <QtCore/QProcess> <QtTest/QSignalSpy>)
endif()

# QtTest's header looks at definitions that come with some of Qt's modules, so a program
# with them could not share what is precompiled without. Nothing here needs them.
set(KX_TEST_OPTIONS -O0 -UQT_NETWORK_LIB -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)

# kx_add_test_headers(NAME): the target whose precompiled header the others share.
function(kx_add_test_headers name)
  target_compile_options(${name} PRIVATE ${KX_TEST_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${KX_FIRST_TEST_HEADERS})
  set(KX_TEST_HEADERS ${name} PARENT_SCOPE)
endfunction()

function(kx_use_test_headers target)
  target_compile_options(${target} PRIVATE ${KX_TEST_OPTIONS} -fPIC)
  target_precompile_headers(${target} REUSE_FROM ${KX_TEST_HEADERS})
endfunction()

# kx_add_test_program(NAME SOURCE...): run by CTest; linked to nothing yet.
function(kx_add_test_program name)
  add_executable(${name} ${ARGN})
  list(GET ARGN 0 source)
  kx_moc_test(${name} ${source})
  kx_use_test_headers(${name})
  kx_add_warnings(${name})
  target_link_options(${name} PRIVATE ${KX_TEST_LINKER})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${KX_TEST_SECONDS})
endfunction()

# kx_add_test(NAME SOURCE... [LIBRARIES ...]): linked to the driver and what tests share.
function(kx_add_test name)
  cmake_parse_arguments(KX "" "" "LIBRARIES" ${ARGN})
  kx_add_test_program(${name} ${KX_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE kx_test_support ${KX_LIBRARIES})
endfunction()

# kx_add_test_library(NAME SOURCE...): what several tests share.
function(kx_add_test_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC kx_test_support)
  kx_use_test_headers(${name})
  kx_add_warnings(${name})
endfunction()
