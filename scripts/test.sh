#!/usr/bin/env bash
# From nothing to a passing test run: installs what is missing, builds, runs
# every test, then builds again with AddressSanitizer and
# UndefinedBehaviorSanitizer and runs every test once more, and last runs
# every fuzz target for a few seconds (built with clang), failing on a crash.
#   scripts/test.sh            all three runs
#   scripts/test.sh --quick    the plain run only
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
export QT_QPA_PLATFORM=offscreen

# The window test needs an X display: a virtual one when xvfb-run is there
# (scripts/install-deps.sh installs it); without one ctest skips that test.
with_display=()
if command -v xvfb-run >/dev/null; then
  with_display=(xvfb-run -a -s "-screen 0 640x480x24")
fi

run_suite() {
  local build="$1"; shift
  "$root/scripts/build.sh" "$build" "$@"
  "${with_display[@]}" ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
}

run_suite "$root/build"
if [ "${1:-}" != "--quick" ]; then
  export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
  export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
  # The libraries behind the media output keep what they register until the
  # process ends. Exported here rather than set per test, so that the programs
  # the tests start (the player, the tools) run with it too.
  export LSAN_OPTIONS="suppressions=$root/tests/media-lsan.supp:print_suppressions=0"
  run_suite "$root/build-sanitize" -DMP_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug
  "$root/scripts/fuzz.sh" 5
fi
