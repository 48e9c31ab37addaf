# Stands in for the libraries that pkg-config knows on macOS: libsndfile alone.
include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
set(PkgConfig_FOUND TRUE)
macro(pkg_check_modules prefix)
  header_only_package(PkgConfig::${prefix} sndfile.h)
endmacro()
