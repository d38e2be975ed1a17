#!/usr/bin/env bash
# Installs what is missing and runs every check: layers, formatting, unit tests, window tests, and
# the same tests under the address and undefined-behaviour sanitizers.
# Usage: ./test.sh
set -euo pipefail
cd "$(dirname "$0")"
source tools/setup.sh

need "${build_packages[@]}" clang-format
tools/check_layers
find bench demo fuzz src tests tools -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run -Werror

for preset in release sanitize; do
    echo "== $preset =="
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    QT_QPA_PLATFORM=offscreen ctest --test-dir "build/$preset" -j "$(nproc)" --output-on-failure
done
