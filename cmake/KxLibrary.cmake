# The driver library and its headers.

include(CheckCXXCompilerFlag)

set(KX_PUBLIC_HEADERS
  tarvelan_kx_series.h
  driver/export.h driver/records.h driver/setup.h driver/tarvelan.h
  registers/address_check.h registers/address_series.h registers/recipe_addresses.h
  registers/register_catalogue.h
  planning/condition_reads.h planning/read_jobs.h
  modbus/send_schedule.h
  data/host_access.h data/reply_handling.h)

add_library(tarvelan_kx_series SHARED
  tarvelan_kx_series.cpp
  driver/job_queue.cpp driver/setup.cpp driver/value_change.cpp
  registers/address_check.cpp registers/address_series.cpp registers/address_weight.cpp
  registers/recipe_addresses.cpp registers/register_catalogue.cpp registers/register_types.cpp
  registers/type_names.cpp
  planning/address_merge.cpp planning/address_span.cpp planning/condition_reads.cpp
  planning/monitor_flags.cpp planning/read_jobs.cpp planning/weight_order.cpp
  modbus/crc.cpp modbus/frame_bytes.cpp modbus/frame_list.cpp modbus/read_request.cpp
  modbus/recipe_requests.cpp modbus/reply_check.cpp modbus/send_schedule.cpp
  modbus/write_request.cpp
  data/change_notification.cpp data/data_area_index.cpp data/data_areas.cpp
  data/host_access.cpp data/read_frame.cpp data/read_values.cpp data/recipe_values.cpp
  data/record_table.cpp data/reply_handling.cpp data/write_completion.cpp
  data/written_values.cpp)
add_library(tarvelan::kx_series ALIAS tarvelan_kx_series)

set_target_properties(tarvelan_kx_series PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  EXPORT_NAME kx_series
  CXX_STANDARD ${KX_DRIVER_CXX_STANDARD})
target_include_directories(tarvelan_kx_series PUBLIC
  $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarvelan_kx_series>)
target_link_libraries(tarvelan_kx_series PUBLIC Kx::Core)
# What the headers ask of a runtime's compiler.
target_compile_features(tarvelan_kx_series INTERFACE cxx_std_${KX_DRIVER_CXX_STANDARD})
kx_add_warnings(tarvelan_kx_series)
target_compile_options(tarvelan_kx_series
  PRIVATE -fno-semantic-interposition
  # Without -fPIC an executable would get its own copy of `driver`.
  PUBLIC -fPIC)
# For core dumps from the field, and to compare the binary interface. Packages strip it.
target_compile_options(tarvelan_kx_series PRIVATE -g)
# For x86 g++ copies kilobyte records with string instructions, which start slowly.
check_cxx_compiler_flag(-mmemcpy-strategy=libcall:-1:noalign KX_HAS_MEMCPY_STRATEGY)
if(KX_HAS_MEMCPY_STRATEGY)
  target_compile_options(tarvelan_kx_series PRIVATE
    -mmemcpy-strategy=libcall:-1:noalign -mmemset-strategy=libcall:-1:noalign)
endif()
if(KX_PRECOMPILES)
  target_precompile_headers(tarvelan_kx_series PRIVATE ${KX_CORE_HEADERS})
endif()
if(KX_UNITY_DRIVER)
  # The one in no folder would not be looked at beside others: see HeaderFilterRegex in .clang-tidy.
  kx_compile_together(tarvelan_kx_series tarvelan_kx_series.cpp)
endif()
# A panel loads several drivers that export the same names: each must use its own.
target_link_options(tarvelan_kx_series PRIVATE -Wl,-Bsymbolic)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize") # clang gives their run time to programs only
  target_link_options(tarvelan_kx_series PRIVATE -Wl,--no-undefined)
endif()

# Hides what the compiler would export on its own, such as template instances.
set(KX_EXPORTED_NAMES "${CMAKE_CURRENT_SOURCE_DIR}/driver/exported_names.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${KX_EXPORTED_NAMES}")
file(STRINGS "${KX_EXPORTED_NAMES}" names REGEX "^[^#]")
list(JOIN names ";\n  " names)
set(KX_EXPORT_MAP "${CMAKE_CURRENT_BINARY_DIR}/tarvelan_kx_series.map")
file(GENERATE OUTPUT "${KX_EXPORT_MAP}" CONTENT "{ global:\n  ${names};\n  local: *; };\n")
target_link_options(tarvelan_kx_series PRIVATE "-Wl,--version-script=${KX_EXPORT_MAP}")
set_property(TARGET tarvelan_kx_series APPEND PROPERTY LINK_DEPENDS "${KX_EXPORT_MAP}")

# What a register type is, for the tools and for tests of what the library hides.
add_library(kx_register_types STATIC registers/register_types.cpp)
set_target_properties(kx_register_types PROPERTIES CXX_STANDARD ${KX_DRIVER_CXX_STANDARD})
target_include_directories(kx_register_types PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(kx_register_types PUBLIC Kx::Core)
kx_add_warnings(kx_register_types)
