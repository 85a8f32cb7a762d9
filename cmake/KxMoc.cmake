# moc looks through what a header includes for types that are declared to Qt. Of Qt's own headers it needs
# none, and to read them takes longer than to compile what it makes: here it finds the project's alone.

if(NOT KX_QT EQUAL 4)
  get_target_property(moc Qt${KX_QT}::moc LOCATION)
  set(KX_MOC "${CMAKE_CURRENT_BINARY_DIR}/moc_of_the_project")
  file(CONFIGURE OUTPUT "${KX_MOC}" @ONLY CONTENT [[#!/bin/sh
for word do
  shift
  case $word in "-I@PROJECT_SOURCE_DIR@"*) ;; -I*) continue ;; esac
  set -- "$@" "$word"
done
exec "@moc@" "$@"
]])
  file(CHMOD "${KX_MOC}" PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
endif()

# kx_moc(TARGET): of those of its headers that need it.
function(kx_moc target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOMOC_EXECUTABLE "${KX_MOC}")
endfunction()

# kx_moc_test(NAME SOURCE): makes NAME.moc of the test's source, which includes it. AUTOMOC would look
# at each source and header of each test.
function(kx_moc_test name source)
  set(moc "${CMAKE_CURRENT_BINARY_DIR}/moc/${name}.moc")
  file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/moc")
  add_custom_command(OUTPUT "${moc}"
    COMMAND $<TARGET_FILE:Qt${KX_QT}::moc> "${CMAKE_CURRENT_SOURCE_DIR}/${source}" -o "${moc}"
    DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${source}" VERBATIM)
  target_sources(${name} PRIVATE "${moc}")
  target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/moc")
endfunction()
