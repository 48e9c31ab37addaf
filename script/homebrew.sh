# Sourced by the scripts for macOS: where Homebrew keeps what CMake does not find by itself.
homebrew_options=(
  "-DCMAKE_PREFIX_PATH=$(brew --prefix qt)"
  "-DICU_ROOT=$(brew --prefix icu4c)"
  -DBRIVANDEL_WARNINGS_AS_ERRORS=OFF # compilers here are newer than those that the program was written with
)
export PKG_CONFIG_PATH="$(brew --prefix)/lib/pkgconfig${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}"
