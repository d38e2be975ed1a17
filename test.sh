#!/usr/bin/env bash
# Installs what is missing, after saying what, and runs every stage, or those that are named:
#   style     the layers of the includes, the formatting
#   release   all tests, built by GCC
#   sanitize  all tests under the address and undefined-behaviour sanitizers, built by Clang
#   tidy      static analysis, after the stage sanitize
#   package   Debian's package, checked, installed, tried and purged, after the stage release
#   windows   all tests but those of the windows, cross-compiled and run under Wine, after the stage release
# Usage: ./test.sh [--no-install] [STAGE ...]
set -euo pipefail
cd "$(dirname "$0")"
source tools/setup.sh

sources=(bench demo fuzz src tests tools)

stage_style() {
    need clang-format
    tools/check_layers
    find "${sources[@]}" -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run -Werror
}

build_and_test() {
    need "${build_packages[@]}" "${@:2}"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
    ctest --preset "$1" -j "$(nproc)"
}

stage_release() { build_and_test release; }
stage_sanitize() { build_and_test sanitize clang libclang-rt-dev; }

# What it counts of warnings in the system's headers is left out.
analyse() { # BUILD WORD FOLDER...
    find "${@:3}" -name '*.cpp' -not -name '*_windows*' |
        xargs -n 1 -P "$(nproc)" clang-tidy -quiet -p "build/$1" "$2" 2>/dev/null
}
stage_tidy() {
    need clang-tidy
    analyse sanitize --checks= src
    # To follow the paths through the others takes most of the time, and they run here anyway.
    analyse sanitize --checks=-clang-analyzer-* demo fuzz tests tools
    # The sanitizers leave the benchmarks out.
    cmake --preset clang -B build/tidy -D CMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
    analyse tidy --checks=-clang-analyzer-* bench
}

stage_package() {
    tools/debian/make_package build/release
    tools/debian/check_package build/release
    build/release/bin/make_demo_image build/demo.smc >/dev/null
    as_root tools/debian/try_package build/release/veldrune_*.deb build/demo.smc
}

stage_windows() {
    tools/windows/build --core
    tools/windows/test --core
}

stages=("$@")
[ $# -gt 0 ] || stages=(style release sanitize tidy package windows)
for stage in "${stages[@]}"; do
    echo "== $stage =="
    started=$SECONDS
    "stage_$stage"
    echo "== $stage: $((SECONDS - started)) s =="
done
