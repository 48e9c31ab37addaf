# What every target of this project is compiled with, and nothing that is not ours: link brivandel_options privately.
option(BRIVANDEL_WARNINGS_AS_ERRORS "Let no warning pass" ON)

add_library(brivandel_options INTERFACE)
target_compile_features(brivandel_options INTERFACE cxx_std_20)
target_compile_options(brivandel_options INTERFACE
  -Wall -Wextra -Wpedantic $<$<BOOL:${BRIVANDEL_WARNINGS_AS_ERRORS}>:-Werror>
  -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wcast-align -Wformat=2
  -Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi -Wnull-dereference)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports these inside inlined library code, at places that are not ours to change.
  target_compile_options(brivandel_options INTERFACE -Wno-null-dereference -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # A header of xcb's has a member called explicit, which must be renamed to be read at all; a newer clang finds GCC 12's own
  # library deprecated in itself.
  target_compile_options(brivandel_options INTERFACE -Wno-keyword-macro -Wno-deprecated-declarations)
endif()
target_compile_definitions(brivandel_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_KEYWORDS QT_NO_CONTEXTLESS_CONNECT QT_NO_FOREACH QT_STRICT_ITERATORS)

# brivandel_library(NAME sources... [LINK public-libraries...] [PRIVATE private-libraries...])
# A static library of one folder, with the headers that most of its files read compiled once.
function(brivandel_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;PRIVATE")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Core ${arg_LINK} PRIVATE brivandel_options ${arg_PRIVATE})
  target_precompile_headers(${name} PRIVATE <QString> <QVariant> <chrono> <functional> <memory> <optional> <vector>)
endfunction()
