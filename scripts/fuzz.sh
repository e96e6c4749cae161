#!/usr/bin/env bash
# Builds the fuzz targets (clang, libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer, in build-fuzz/) and runs each for SECONDS over
# its seed corpus. Prints per target the executions and whether it crashed;
# fails when one did. A target stops at its first crash and leaves the input
# in build-fuzz/fuzz-runs/TARGET/; run the program on that file to reproduce:
#   QT_QPA_PLATFORM=offscreen build-fuzz/bin/fuzz_TARGET FILE
#   scripts/fuzz.sh [SECONDS]        default 60
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
seconds="${1:-60}"
build="$root/build-fuzz"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"

"$root/scripts/install-deps.sh"
. "$root/scripts/compiler-cache.sh"
cmake -S "$root" -B "$build" -G Ninja "${compiler_cache_options[@]}" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
      -DMP_BUILD_FUZZERS=ON -DMP_SANITIZE=ON -DMP_BUILD_TESTS=OFF >/dev/null
# Only the targets and what they link, not the application, tools or tests.
cmake --build "$build" --target mp_fuzzers

failed=0
for seeds in "$root"/fuzz/corpus/*/; do
  target="$(basename "$seeds")"
  run="$build/fuzz-runs/$target"
  # New inputs go to a corpus of the run's own, so the committed seeds stay as they are.
  rm -rf "$run/crashes"
  mkdir -p "$run/corpus" "$run/crashes"
  dict=()
  [ -f "$root/fuzz/dict/$target.dict" ] && dict=(-dict="$root/fuzz/dict/$target.dict")
  status=0
  "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=30 -print_final_stats=1 \
      -artifact_prefix="$run/crashes/" "${dict[@]}" "$run/corpus" "$seeds" >"$run/log" 2>&1 || status=$?
  executions="$(sed -n 's/^stat::number_of_executed_units: *//p' "$run/log" | tail -1)"
  found="$(find "$run/crashes" -type f | head -1)"
  if [ "$status" -ne 0 ] || [ -n "$found" ]; then
    failed=1
    echo "fuzz_$target: ${executions:-?} executions, 1 crash: ${found:-see $run/log}"
    grep -m1 -E 'ERROR: |runtime error:|SUMMARY:' "$run/log" | sed 's/^/  /' || true
  else
    echo "fuzz_$target: $executions executions, 0 crashes"
  fi
done
exit "$failed"
