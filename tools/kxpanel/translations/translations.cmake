# The window's texts in other languages, which the program carries, with those of the libraries below
# it; of English the forms of counts alone. Without Qt's tools for them (apt install
# qttools5-dev-tools) it speaks English and says "1 value(s)".
#   cmake --build ... --target update_translations   takes new texts over from the sources

set(languages de en)

find_program(KX_LRELEASE lrelease HINTS /usr/lib/qt${KX_QT}/bin)
find_program(KX_LUPDATE lupdate HINTS /usr/lib/qt${KX_QT}/bin)
mark_as_advanced(KX_LRELEASE KX_LUPDATE)
if(NOT KX_LRELEASE OR NOT KX_LUPDATE)
  message(STATUS "kxpanel is built in English alone: lrelease and lupdate are not there")
  return()
endif()

set(entries "")
foreach(language IN LISTS languages)
  set(texts "${CMAKE_CURRENT_LIST_DIR}/kxpanel_${language}.ts")
  set(made "${CMAKE_CURRENT_BINARY_DIR}/kxpanel_${language}.qm")
  add_custom_command(OUTPUT "${made}"
    COMMAND ${KX_LRELEASE} -silent "${texts}" -qm "${made}"
    DEPENDS "${texts}" VERBATIM)
  list(APPEND all_made "${made}")
  string(APPEND entries "<file>kxpanel_${language}.qm</file>")
endforeach()
set(list "${CMAKE_CURRENT_BINARY_DIR}/translations.qrc")
file(CONFIGURE OUTPUT "${list}" @ONLY
  CONTENT "<RCC><qresource prefix=\"/translations\">@entries@</qresource></RCC>\n")
set(carried "${CMAKE_CURRENT_BINARY_DIR}/carried_translations.cpp")
add_custom_command(OUTPUT "${carried}"
  COMMAND Qt${KX_QT}::rcc --name translations --output "${carried}" "${list}"
  DEPENDS ${all_made} "${list}" VERBATIM)
target_sources(kx_window PRIVATE "${carried}")
set_source_files_properties("${carried}" PROPERTIES
  GENERATED ON SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON COMPILE_OPTIONS -w)
target_compile_definitions(kx_window PRIVATE KX_HAS_TRANSLATIONS)

set(update ${KX_LUPDATE} -locations none -no-obsolete -I "${PROJECT_SOURCE_DIR}/tools"
  "${PROJECT_SOURCE_DIR}/tools")
add_custom_target(update_translations
  COMMAND ${update} -ts "${CMAKE_CURRENT_LIST_DIR}/kxpanel_de.ts"
  COMMAND ${update} -pluralonly -ts "${CMAKE_CURRENT_LIST_DIR}/kxpanel_en.ts"
  VERBATIM)
