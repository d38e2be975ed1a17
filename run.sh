#!/usr/bin/env bash
# Builds the editor and starts it on an image, or on a freshly made demo image where none is named.
# Where there is no display, the main window is drawn into a PNG instead.
# Usage: ./run.sh [--no-install] [IMAGE]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/tools/setup.sh"

need "${program_packages[@]}" fonts-dejavu-core
# Not the folder of a preset: these have warnings as errors, and a newer compiler has new ones.
build=$here/build/run
cmake -G Ninja -S "$here" -B "$build" >/dev/null
cmake --build "$build" --target veldrune make_demo_image make_screenshots

image=${1:-}
if [ -z "$image" ]; then
    image=$here/build/demo.smc
    "$build/bin/make_demo_image" "$image"
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$build/bin/veldrune" "$image"
fi
picture=$here/build/main-window.png
QT_QPA_PLATFORM=offscreen "$build/bin/make_screenshots" --window "$picture" "$image"
echo "There is no display here. The main window was drawn into $picture"
