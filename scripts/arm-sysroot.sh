#!/usr/bin/env bash
# Makes a sysroot for the 32-bit ARM build (Debian armhf) out of Debian's own
# packages, without touching the machine's package state: a private apt state
# for armhf resolves the packages of scripts/arm-sysroot-packages.txt with
# their dependencies and downloads them, and each is unpacked into the sysroot.
#   scripts/arm-sysroot.sh SYSROOT [APT_DIR]
# APT_DIR (default: SYSROOT.apt) keeps the package lists and the downloaded
# files between runs; the sysroot is made again only when the package list
# changed. Needs apt-get and dpkg-deb, not root.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
sysroot="$(realpath -m "$1")"
state="$(realpath -m "${2:-$sysroot.apt}")"
list="$root/scripts/arm-sysroot-packages.txt"
mapfile -t packages < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$list")

stamp="$sysroot/.packages"
if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "${packages[*]}" ]; then
  echo "arm-sysroot: $sysroot is up to date"
  exit 0
fi

# The machine's sources and keys, an armhf-only architecture list, and lists,
# downloads and the (empty) record of installed packages of our own.
mkdir -p "$state/lists/partial" "$state/archives/partial"
: > "$state/status"
apt_options=(-o "APT::Architecture=armhf" -o "APT::Architectures::=armhf"
  -o "Dir::State=$state" -o "Dir::State::Lists=$state/lists" -o "Dir::State::status=$state/status"
  -o "Dir::Cache=$state" -o "Dir::Cache::archives=$state/archives"
  -o "Debug::NoLocking=1" -o "APT::Install-Recommends=0" -o "APT::Get::Assume-Yes=1")

echo "arm-sysroot: resolving ${packages[*]} for armhf"
# A suite whose index cannot be had (a mirror caught mid-sync) is left out
# with a warning: the packages then come from the suites that answered.
apt-get "${apt_options[@]}" update -qq ||
  echo "arm-sysroot: warning: some armhf package indexes could not be fetched (above); going on without them" >&2
# The resolved set, as "name version arch" of every package to unpack.
mapfile -t selected < <(apt-get "${apt_options[@]}" -s install "${packages[@]}" |
  sed -n 's/^Inst \([^ ]*\) (\([^ ]*\) .*\[\([a-z0-9]*\)\]).*$/\1 \2 \3/p')
[ ${#selected[@]} -gt 0 ] || { echo "arm-sysroot: apt-get resolved nothing" >&2; exit 1; }
apt-get "${apt_options[@]}" -qq --download-only install "${packages[@]}" >/dev/null

rm -rf "$sysroot"
mkdir -p "$sysroot"
for entry in "${selected[@]}"; do
  read -r name version arch <<<"$entry"
  deb="$state/archives/${name}_${version//:/%3a}_${arch}.deb"
  [ -f "$deb" ] || { echo "arm-sysroot: $deb was not downloaded" >&2; exit 1; }
  dpkg-deb -x "$deb" "$sysroot"
done

# Links that point to an absolute path would leave the sysroot for the
# build machine's own files: make them relative.
while IFS= read -r -d '' link; do
  target="$(readlink "$link")"
  ln -sfn "$(realpath -m --relative-to="$(dirname "$link")" "$sysroot$target")" "$link"
done < <(find "$sysroot" -type l -lname '/*' -print0)

echo "${packages[*]}" > "$stamp"
echo "arm-sysroot: $sysroot: ${#selected[@]} packages, $(du -sh "$sysroot" | cut -f1)"
