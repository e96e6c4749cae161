#!/usr/bin/env bash
# The run on the handset's processor, 32-bit ARM (Debian armhf), on a PC:
# installs Debian's cross compiler and user-mode QEMU, makes an armhf sysroot
# out of Debian's packages (scripts/arm-sysroot.sh; kept in the build folder
# between runs), cross-builds everything (cmake/linux-armhf.cmake), runs every
# test under the emulator, and last compares the bytes of every message and
# record of a fixed scenario with those of the build for this machine
# (scripts/payload-bytes.sh): any difference fails the run.
#   scripts/test-arm.sh [BUILD_DIR]      (default: build-arm)
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
arm="$(realpath -m "${1:-$root/build-arm}")"
export QT_QPA_PLATFORM=offscreen

stage_start=$SECONDS
stage() {
  echo "test-arm: $1 took $((SECONDS - stage_start)) s"
  stage_start=$SECONDS
}

"$root/scripts/install-deps.sh" g++-arm-linux-gnueabihf qemu-user
stage "installing"

"$root/scripts/arm-sysroot.sh" "$arm/sysroot" "$arm/sysroot-apt"
stage "the sysroot"
emulator=(qemu-arm -L "$arm/sysroot")

. "$root/scripts/compiler-cache.sh"
cmake -S "$root" -B "$arm/build" -G Ninja "${compiler_cache_options[@]}" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/linux-armhf.cmake" -DMP_ARM_SYSROOT="$arm/sysroot" >/dev/null
cmake --build "$arm/build"
stage "the cross build"

# The window test needs an X display: the machine's own Xvfb serves the ARM
# program as it serves any other.
with_display=()
if command -v xvfb-run >/dev/null; then
  with_display=(xvfb-run -a -s "-screen 0 640x480x24")
fi
tests_passed=1
# A test that fails is run once more, and fails the run only when it fails
# again: under the emulator the media back end's threads have locked up
# inside themselves now and then (a test of the media output hung once in
# four runs, and passed in 4 s in the others); a fault of the program fails
# both times. Every retry is listed in the output ("Test Passed" after a
# "Failed" or "Timeout" of the same test).
"${with_display[@]}" ctest --test-dir "$arm/build" --output-on-failure -j "$(nproc)" --repeat until-pass:2 \
  || tests_passed=0
stage "the tests under the emulator"

# The same scenario on both processors, in the same folder (paths are part of
# the bytes); this machine's build runs twice, so that a scenario that is not
# deterministic is told apart from a difference between the processors.
"$root/scripts/build.sh" "$root/build"
"$root/scripts/payload-bytes.sh" "$root/build" "$arm/payloads" > "$arm/payloads-host.txt"
"$root/scripts/payload-bytes.sh" "$root/build" "$arm/payloads" > "$arm/payloads-host-again.txt"
"$root/scripts/payload-bytes.sh" "$arm/build" "$arm/payloads" "${emulator[@]}" > "$arm/payloads-armhf.txt"
bytes_equal=1
if ! diff -u "$arm/payloads-host.txt" "$arm/payloads-host-again.txt"; then
  echo "test-arm: the payload scenario gives different bytes on two runs on this machine" >&2
  bytes_equal=0
elif ! diff -u "$arm/payloads-host.txt" "$arm/payloads-armhf.txt"; then
  echo "test-arm: the ARM build's bytes differ from this machine's (above)" >&2
  bytes_equal=0
else
  echo "test-arm: payloads equal: $(grep -c '"kind":"qcop"' "$arm/payloads-armhf.txt") messages and" \
       "$(grep -vc -e '^#' -e '"kind":"qcop"' "$arm/payloads-armhf.txt") records, byte for byte"
fi
stage "comparing the payload bytes"

[ $tests_passed = 1 ] && [ $bytes_equal = 1 ]
