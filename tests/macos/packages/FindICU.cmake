# Stands in for ICU built for macOS.
include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
set(ICU_FOUND TRUE)
foreach(component ${ICU_FIND_COMPONENTS})
  header_only_package(ICU::${component} unicode)
endforeach()
