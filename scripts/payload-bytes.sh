#!/usr/bin/env bash
# Prints the bytes the player exchanges in a fixed scenario
# (tests/bytes/payload_scenario.mps): the payload of every channel message
# sent, as the journal records it, and every record the main-window library
# hands to the metadata service, in its 32-bit layout (tests/bytes/RecordTap.cpp).
# Builds for two processors must print the same.
#   scripts/payload-bytes.sh BUILD_DIR WORK_DIR [EMULATOR ...]
# Runs BUILD_DIR's mp-samplegen, mp-scan and mediaplayer (through EMULATOR,
# a user-mode QEMU, when given) in WORK_DIR, which it makes anew: give two
# runs the same WORK_DIR, since paths are part of the bytes.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(realpath "$1")"
work="$(realpath -m "$2")"
shift 2
emulator=("$@")

rm -rf "$work"
mkdir -p "$work"
export QT_QPA_PLATFORM=offscreen LANG=C.UTF-8 MP_QCOP_LOCAL=1 MP_RECORD_TAP="$work/records"
unset MP_JOURNAL MP_DATA_DIR MP_LIBRARY
# The tap goes into the player only: the emulated program's loader preloads
# it, never the emulator's own.
tap="$build/lib/libmp_record_tap.so"
if [ ${#emulator[@]} -gt 0 ]; then
  player=(env "QEMU_SET_ENV=LD_PRELOAD=$tap" "${emulator[@]}")
else
  player=(env "LD_PRELOAD=$tap")
fi

"${emulator[@]}" "$build/bin/mp-samplegen" "$work/library" >/dev/null
"${emulator[@]}" "$build/bin/mp-scan" --data-dir "$work/data" "$work/library" >/dev/null
(cd "$work/library" &&
  "${player[@]}" "$build/bin/mediaplayer" --data-dir "$work/data" --journal "$work/journal" \
    --log "$work/trace" --quiet --script "$root/tests/bytes/payload_scenario.mps")

echo "# channel messages"
grep -F '"kind":"qcop"' "$work/journal"
echo "# records handed to the metadata service"
cat "$work/records"
