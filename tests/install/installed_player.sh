#!/usr/bin/env bash
# installed_player.sh PREFIX WORK BUILD SOURCE [SYSROOT EMULATOR...]: checks the tree
# installed in PREFIX: no library or program names the build or source folder
# in its dynamic section, every dependency resolves from PREFIX or the system,
# and PREFIX/bin/mediaplayer plays the sample library (made and scanned by the
# installed tools) and opens the setup library by name (installed_player.mps).
# A tree built for another processor runs through EMULATOR, with the system's
# libraries and dynamic loader in SYSROOT.
set -euo pipefail
prefix="$1" work="$2" build="$3" source="$4" sysroot="${5:-}"
emulator=("${@:6}")
here="$(cd "$(dirname "$0")" && pwd)"
rm -rf "$work" && mkdir -p "$work"
export MP_QCOP_LOCAL=1 QT_QPA_PLATFORM=offscreen
unset LD_LIBRARY_PATH MP_LIBRARY MP_DATA_DIR MP_JOURNAL
fail() { echo "FAIL: $*" >&2; exit 1; }

elf_files=$(find "$prefix/bin" "$prefix/lib" -type f \( -perm -u+x -o -name '*.so*' \))
[ -n "$elf_files" ] || fail "nothing installed in $prefix"
# The dependencies as the programs' own dynamic loader resolves them (what ldd
# shows on the machine the tree was built for).
loader="$(readelf -l "$prefix/bin/mediaplayer" | sed -n 's/.*program interpreter: \(.*\)]$/\1/p')"
[ -n "$loader" ] || fail "$prefix/bin/mediaplayer names no dynamic loader"
loader="$sysroot$loader"
for file in $elf_files; do
  dynamic="$(readelf -d "$file")"
  if grep -qF -e "$build" -e "$source" <<<"$dynamic"; then
    fail "$file names the build or source folder: $(grep -F -e "$build" -e "$source" <<<"$dynamic")"
  fi
  # A library that cannot be found stops the loader, which says which.
  resolved="$("${emulator[@]}" "$loader" --list "$file" 2>&1)" || fail "$file: $resolved"
  resolved="${resolved//"$prefix/"/PREFIX/}"
  if grep -qF -e "$build" <<<"$resolved"; then fail "$file loads from the build: $resolved"; fi
  if grep -E "lib(mp_|vemo)" <<<"$resolved" | grep -vqF "=> PREFIX/"; then
    fail "$file takes a library of the project from elsewhere: $resolved"
  fi
done

"${emulator[@]}" "$prefix/bin/mediaplayer" --help >/dev/null || fail "mediaplayer --help"

# The menu entry starts the installed player with its icon; its name is the
# DesktopEntry that mp-mpris reports.
desktop="$prefix/share/applications/mediaplayer.desktop"
grep -qx "Exec=mediaplayer %f" "$desktop" && grep -qx "Icon=mediaplayer" "$desktop" || fail "$desktop"
for size in 16 48 256; do
  icon="$prefix/share/icons/hicolor/${size}x$size/apps/mediaplayer.png"
  # A PNG's width and height are the big-endian words at bytes 16 and 20.
  read -r width height < <(od -An -tu4 --endian=big -j16 -N8 "$icon")
  [ "$width $height" = "$size $size" ] || fail "$icon is ${width}x$height"
done
"${emulator[@]}" "$prefix/bin/mp-samplegen" "$work/library" >/dev/null
"${emulator[@]}" "$prefix/bin/mp-scan" --data-dir "$work/data" "$work/library" >/dev/null
"${emulator[@]}" "$prefix/bin/mediaplayer" --data-dir "$work/data" --journal "$work/journal" --log "$work/log" \
  --script "$here/installed_player.mps" >"$work/output" 2>&1 || fail "mediaplayer: $(cat "$work/output")"

first_song="$(grep -m1 '^Playing:' "$work/output" || true)"
[ "$first_song" = "Playing: Afterglow — Neon Parade (Afterglow)  [$work/library/Music/Neon Parade/Afterglow/01 Afterglow.wav]" ] || fail "first song: '$first_song'; output: $(cat "$work/output")"
grep -qF '"call":"exeShowSetupUI"' "$work/journal" \
  || fail "the setup library was not opened: $(grep -i setup "$work/log" || true)"
echo "ok: $first_song; the setup library was opened"
