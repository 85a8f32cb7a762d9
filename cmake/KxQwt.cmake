# Qwt, which draws plots, as Kx::Qwt. Debian's has no CMake package of its own.
find_path(KX_QWT_HEADERS qwt_plot.h PATH_SUFFIXES qwt qwt-qt5)
find_library(KX_QWT_LIBRARY NAMES qwt-qt5 qwt)
if(NOT KX_QWT_HEADERS OR NOT KX_QWT_LIBRARY)
  message(FATAL_ERROR "kxpanel needs Qwt for Qt 5: apt install libqwt-qt5-dev")
endif()
mark_as_advanced(KX_QWT_HEADERS KX_QWT_LIBRARY)

add_library(Kx::Qwt UNKNOWN IMPORTED GLOBAL)
set_target_properties(Kx::Qwt PROPERTIES
  IMPORTED_LOCATION "${KX_QWT_LIBRARY}"
  INTERFACE_INCLUDE_DIRECTORIES "${KX_QWT_HEADERS}"
  INTERFACE_LINK_LIBRARIES Kx::Widgets)
