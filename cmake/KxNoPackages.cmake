# cpack reads this in a build for Qt 4.
message(FATAL_ERROR "No Debian packages for Qt 4, which Debian does not have: install with "
  "`cmake --install BUILD --prefix DIRECTORY`, or configure with -DKX_QT=5 or -DKX_QT=6.")
