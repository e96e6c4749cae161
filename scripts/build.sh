#!/usr/bin/env bash
# Configures and builds the project into a build folder.
#   scripts/build.sh [BUILD_DIR] [extra cmake options...]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$root/build}"
shift || true
"$root/scripts/install-deps.sh"
. "$root/scripts/compiler-cache.sh"
cmake -S "$root" -B "$build" -G Ninja "${compiler_cache_options[@]}" "$@" >/dev/null
cmake --build "$build"
