# Sourced by the checks of the macOS adapters. Each makes what it needs in a folder of its own, which may be there already.
set -euo pipefail

checks=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$checks/../.." && pwd)
work=${MACOS_CHECKS_FOLDER:-$root/build/macos-checks}
mkdir -p "$work"
export CCACHE_SLOPPINESS=pch_defines,time_macros

fail() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}

# require PROGRAM PACKAGE...: a check that cannot run says so and is skipped, which ctest shows as such.
require() {
  while [ $# -gt 0 ]; do
    if ! command -v "$1" >/dev/null && ! [ -e "$1" ]; then
      echo "SKIPPED: $1 is not installed (Debian package $2; script/setup test installs it)"
      exit 77
    fi
    shift 2
  done
}

require_darwin_tools() {
  require clang++-19 clang-19 ld64.lld-19 lld-19 llvm-nm-19 llvm-19 python3 python3 \
    /usr/lib/llvm-19/include/c++/v1/vector libc++-19-dev /usr/include/x86_64-linux-musl/stdio.h musl-dev
}

# configure_darwin ARCHITECTURE: this project as CMake sees it on a Mac.
configure_darwin() {
  [ -f "$work/$1/build.ninja" ] && return
  cmake -S "$root" -B "$work/$1" -G Ninja -DCMAKE_OPTIMIZE_DEPENDENCIES=ON -DCMAKE_AUTOGEN_ORIGIN_DEPENDS=OFF -DCMAKE_TOOLCHAIN_FILE="$checks/darwin-on-linux.cmake" \
    -DDARWIN_ARCHITECTURE="$1" -DBRIVANDEL_TESTS=OFF >"$work/$1.configured" 2>&1 || {
    cat "$work/$1.configured"
    fail "the project cannot be configured for $1"
  }
}

# build_darwin ARCHITECTURE TARGET...
build_darwin() {
  local architecture=$1
  shift
  ninja -C "$work/$architecture" -j "${MACOS_CHECKS_JOBS:-1}" "$@" >"$work/$architecture.built" 2>&1 || {
    grep -v '^/usr/bin/ccache' "$work/$architecture.built"
    return 1
  }
}
