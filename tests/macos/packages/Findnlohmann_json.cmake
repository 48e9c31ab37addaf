# Stands in for the JSON library on macOS.
include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
set(nlohmann_json_FOUND TRUE)
header_only_package(nlohmann_json::nlohmann_json nlohmann)
