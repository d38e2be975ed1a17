#!/usr/bin/env bash
# Installs what is missing and runs every check: layers, formatting, unit tests, window tests,
# the same tests under the address and undefined-behaviour sanitizers, and with --tidy static analysis.
# Usage: ./test.sh [--no-install] [--tidy]
set -euo pipefail
cd "$(dirname "$0")"
source tools/setup.sh

need "${build_packages[@]}" clang-format
tools/check_layers
sources=(bench demo fuzz src tests tools)
find "${sources[@]}" -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run -Werror

for preset in release sanitize; do
    echo "== $preset =="
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    QT_QPA_PLATFORM=offscreen ctest --test-dir "build/$preset" -j "$(nproc)" --output-on-failure
done

[ "${1:-}" = --tidy ] || exit 0
echo "== clang-tidy =="
need clang-tidy
# What it counts of warnings in the system's headers is left out.
find "${sources[@]}" -name '*.cpp' |
    xargs -n 1 -P "$(nproc)" clang-tidy -quiet -p build/release 2>/dev/null
