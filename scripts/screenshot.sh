#!/usr/bin/env bash
# Makes docs/player.png: the player window playing a sample song with its
# options menu open, on a virtual X display (xvfb-run) just larger than the window.
#   scripts/screenshot.sh [BUILD_FOLDER]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$root/build}"
cmake --build "$build" --target mp_window_shot >/dev/null
xvfb-run -a -s "-screen 0 320x400x24" "$build/bin/mp_window_shot" "$root/docs/player.png"
echo "screenshot: $root/docs/player.png"
