# libkxruntime: addresses, exchange and panel as one library for authors of a runtime. The
# programs here take the same objects as static libraries, since they use what is hidden, too.

# What is installed; each compiles beside the others and the driver's headers.
set(KX_RUNTIME_HEADERS
  addresses/address_text.h addresses/export.h addresses/modbus_span.h addresses/read_pieces.h
  addresses/request_limits.h addresses/station_text.h addresses/watch_pieces.h
  addresses/write_pieces.h
  exchange/connection.h exchange/driver_library.h exchange/driver_memory.h
  exchange/exchange_settings.h exchange/failure.h exchange/loop_clock.h
  exchange/lines/gateway_address.h exchange/lines/line.h exchange/lines/line_timing.h
  exchange/lines/port_modes.h
  exchange/replies/exchange_record.h exchange/replies/statistics.h
  panel/files/csv_fields.h panel/files/csv_table.h panel/files/file_text.h
  panel/files/tag_assignment.h panel/files/tags_file.h panel/files/whole_range.h
  panel/jobs/job.h panel/jobs/read_job.h panel/jobs/recipe_job.h panel/jobs/scan_job.h
  panel/jobs/scan_reply.h panel/jobs/write_job.h
  panel/plan/least_time.h panel/plan/plan_driver.h panel/plan/plan_lengths.h
  panel/plan/plan_request.h panel/plan/plan_timing.h panel/plan/ranges_beyond.h panel/plan/read_rules.h
  panel/plan/time_out_rules.h
  panel/plan/watch_plan.h panel/plan/watched_ranges.h panel/polling/polled_range.h
  panel/recipe/recipe_cells.h panel/recipe/recipe_file.h panel/recipe/recipe_layout.h
  panel/recipe/recipe_storage.h panel/recipe/recipe_value.h
  panel/session/session.h panel/session/session_events.h panel/session/session_settings.h
  panel/text/duration.h panel/text/frame_text.h panel/text/json_time.h panel/text/summary_text.h
  panel/values/decimal.h panel/values/format_text.h panel/values/value_address.h
  panel/values/value_codec.h panel/values/value_format.h
  panel/watch/link_events.h panel/watch/watch.h panel/watch/watch_list.h)

set(KX_RUNTIME_PARTS kx_addresses kx_exchange kx_panel)

add_library(kxruntime SHARED)
add_library(tarvelan::kxruntime ALIAS kxruntime)
foreach(part IN LISTS KX_RUNTIME_PARTS)
  target_sources(kxruntime PRIVATE $<TARGET_OBJECTS:${part}>)
endforeach()
set_target_properties(kxruntime PROPERTIES
  LINKER_LANGUAGE CXX
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})

# One header for all.
list(TRANSFORM KX_RUNTIME_HEADERS REPLACE "(.+)" "#include \"\\1\"" OUTPUT_VARIABLE includes)
list(JOIN includes "\n" includes)
set(KX_RUNTIME_HEADER "${CMAKE_CURRENT_BINARY_DIR}/kxruntime/kxruntime.h")
file(CONFIGURE OUTPUT "${KX_RUNTIME_HEADER}" @ONLY CONTENT
"/// All of libkxruntime: one include.
#ifndef KXRUNTIME_H
#define KXRUNTIME_H

@includes@

#endif
")

target_include_directories(kxruntime INTERFACE
  $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/kxruntime>
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/tools>
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kxruntime>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarvelan_kx_series>)
target_compile_features(kxruntime INTERFACE cxx_std_17)
target_compile_options(kxruntime INTERFACE -fPIC) # as Qt 5 wants it
target_link_libraries(kxruntime
  PUBLIC Kx::Core Kx::SerialPort
  PRIVATE Kx::Network kx_system kx_crc kx_register_types)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize") # clang gives their run time to programs only
  target_link_options(kxruntime PRIVATE -Wl,--no-undefined)
endif()

# Hides what comes from elsewhere: instances of Qt's templates, the driver's sources.
set(KX_RUNTIME_EXPORTS "${CMAKE_CURRENT_LIST_DIR}/kxruntime.map")
target_link_options(kxruntime PRIVATE "-Wl,--version-script=${KX_RUNTIME_EXPORTS}")
set_property(TARGET kxruntime APPEND PROPERTY LINK_DEPENDS "${KX_RUNTIME_EXPORTS}")

install(TARGETS kxruntime EXPORT kxruntimeTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  COMPONENT kxruntime NAMELINK_COMPONENT development)
install(FILES "${KX_RUNTIME_HEADER}"
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxruntime COMPONENT development)
foreach(header IN LISTS KX_RUNTIME_HEADERS)
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES tools/${header}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxruntime/${folder} COMPONENT development)
endforeach()

set(KX_RUNTIME_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kxruntime)
install(EXPORT kxruntimeTargets NAMESPACE tarvelan::
  DESTINATION ${KX_RUNTIME_PACKAGE_DIR} COMPONENT development)
configure_package_config_file(cmake/kxruntimeConfig.cmake.in
  kxruntimeConfig.cmake INSTALL_DESTINATION ${KX_RUNTIME_PACKAGE_DIR})
write_basic_package_version_file(kxruntimeConfigVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(cmake/kxruntime.pc.in kxruntime.pc @ONLY)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/kxruntimeConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/kxruntimeConfigVersion.cmake"
  DESTINATION ${KX_RUNTIME_PACKAGE_DIR} COMPONENT development)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/kxruntime.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
