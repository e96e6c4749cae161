#!/usr/bin/env bash
# From nothing to the media player playing the bundled sample library:
# installs what is missing, builds, makes the sample library, and plays it.
#   scripts/play.sh [mediaplayer options...]
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$root/build"
"$root/scripts/build.sh" "$build"

samples="$build/sample-library"
"$build/bin/mp-samplegen" "$samples"

data="$build/player-data"
mkdir -p "$data"
if [ $# -eq 0 ]; then
  set -- "$samples/Music/Aurora Lane/Northern Lights/01 First Light.wav"
fi
echo "Playing; the library's trace goes to $build/mediaplayer.log, the journal to $build/journal.jsonl"
exec "$build/bin/mediaplayer" --data-dir "$data" --log "$build/mediaplayer.log" \
  --journal "$build/journal.jsonl" "$@"
