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

# build_adapters ARCHITECTURE [SUFFIX]: the objects of the adapters, or of those with that suffix; what they would be linked
# with is compiled elsewhere.
build_adapters() {
  local objects
  mapfile -t objects < <(ninja -C "$work/$1" -t targets all | sed -n "s/^\(.*brivandel_system.dir\/[^ ]*${2:-}\.o\): .*/\1/p")
  [ ${#objects[@]} -gt 0 ] || fail "there are no adapters"
  [ -n "${2:-}" ] || expect_every_adapter "compiled for $1" "${objects[@]}"
  ninja -C "$work/$1" -j "${MACOS_CHECKS_JOBS:-1}" "${objects[@]}" >"$work/$1.built" 2>&1 || {
    grep -v '^/usr/bin/ccache' "$work/$1.built"
    fail "the adapters do not compile for $1"
  }
}

# expect_every_adapter CHECKED OBJECT...: each file of the adapters' folder is among those objects, so that none is left out
# by a list that nobody kept.
expect_every_adapter() {
  local checked=$1 missing
  shift
  missing=$(comm -23 <(cd "$root/src/platform/macos" && find . -name '*.mm' -o -name '*.cpp' | sed 's:.*/::' | sort) \
    <(printf '%s\n' "$@" | sed 's:.*/::; s:\.o$::' | sort))
  [ -z "$missing" ] || fail "not $checked: $(tr '\n' ' ' <<<"$missing")"
}

# configure_standin: the adapters over doubles of the frameworks.
configure_standin() {
  [ -f "$work/standin/build.ninja" ] && return
  cmake -S "$checks/standin" -B "$work/standin" -G Ninja -DCMAKE_CXX_COMPILER="$(command -v clang++-19)" \
    -DCMAKE_OBJCXX_COMPILER="$(command -v clang++-19)" >"$work/standin.configured" 2>&1 || {
    cat "$work/standin.configured"
    fail "the stand-in cannot be configured"
  }
}

# build_standin [TARGET]: everything but the replay, unless it is asked for.
build_standin() {
  ninja -C "$work/standin" -j "${MACOS_CHECKS_JOBS:-1}" "$@" >"$work/standin.built" 2>&1 || {
    cat "$work/standin.built"
    return 1
  }
}

run_standin() {
  ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    timeout 60 "$work/standin/adapters_test" --gtest_brief=1
}
