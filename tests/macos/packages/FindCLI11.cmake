# Stands in for CLI11 on macOS.
include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
set(CLI11_FOUND TRUE)
header_only_package(CLI11::CLI11 CLI)
