# A toolchain that makes objects for macOS on Linux, out of hand-written declarations: what this project's own rules say
# for APPLE is what is built. DARWIN_ARCHITECTURE is arm64 or x86_64.
set(CMAKE_SYSTEM_NAME Darwin)
set(DARWIN_ARCHITECTURE arm64 CACHE STRING "The processor to build for")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES DARWIN_ARCHITECTURE)
set(CMAKE_SYSTEM_PROCESSOR ${DARWIN_ARCHITECTURE})
set(CMAKE_OSX_ARCHITECTURES ${DARWIN_ARCHITECTURE})
set(CMAKE_OSX_DEPLOYMENT_TARGET 13.0 CACHE STRING "")
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
# There is nothing to link a trial against.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

foreach(tool clang-19 clang++-19 llvm-ar-19 llvm-ranlib-19 llvm-install-name-tool-19)
  find_program(DARWIN_${tool} ${tool} REQUIRED)
endforeach()
set(CMAKE_C_COMPILER ${DARWIN_clang-19})
set(CMAKE_CXX_COMPILER ${DARWIN_clang++-19})
set(CMAKE_OBJCXX_COMPILER ${DARWIN_clang++-19})
execute_process(COMMAND ${DARWIN_clang-19} -print-resource-dir OUTPUT_VARIABLE clangResources OUTPUT_STRIP_TRAILING_WHITESPACE)
foreach(language C CXX OBJCXX)
  set(CMAKE_${language}_COMPILER_TARGET ${DARWIN_ARCHITECTURE}-apple-macos13)
  set(CMAKE_${language}_FLAGS_INIT "-nostdinc -D_GNU_SOURCE")
endforeach()
foreach(language CXX OBJCXX)
  string(APPEND CMAKE_${language}_FLAGS_INIT
    " -isystem /usr/lib/llvm-19/include/c++/v1 -isystem ${CMAKE_CURRENT_LIST_DIR}/declarations"
    " -isystem ${CMAKE_CURRENT_LIST_DIR}/darwin-libc -isystem ${clangResources}/include"
    " -isystem /usr/include/x86_64-linux-musl")
endforeach()
set(CMAKE_AR ${DARWIN_llvm-ar-19} CACHE FILEPATH "")
set(CMAKE_RANLIB ${DARWIN_llvm-ranlib-19} CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL ${DARWIN_llvm-install-name-tool-19} CACHE FILEPATH "")
set(Qt6_DIR ${CMAKE_CURRENT_LIST_DIR}/packages/Qt6)
set(CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/packages)
