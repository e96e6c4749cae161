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
"$build/bin/mp-scan" --data-dir "$data" "$samples"
if [ $# -eq 0 ]; then
  # The media browser's request for every song of the library.
  set -- --action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=1 isAllGenre=1 isAllComposer=1 \
    StorageLocation=2 FirstIndex=0
fi
echo "Playing; the library's trace goes to $build/mediaplayer.log, the journal to $build/journal.jsonl"
exec "$build/bin/mediaplayer" --data-dir "$data" --log "$build/mediaplayer.log" \
  --journal "$build/journal.jsonl" "$@"
