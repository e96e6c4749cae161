#!/usr/bin/env bash
# Installs the Debian 12 packages the project builds and tests with, and any
# named on the command line. Does nothing when they are all present already.
set -euo pipefail

# dbus-daemon gives the tests of messages between processes a private bus.
# clang builds the fuzz targets; libclang-rt-14-dev holds libFuzzer and the
# sanitizer runtimes it links (clang only recommends it). xvfb and xauth give
# the window test a virtual X display. Qt Multimedia plays through GStreamer
# (its base and good plug-ins hold the WAV, MP4, JPEG and PulseAudio
# elements); the sound test runs a PulseAudio server of its own and records it.
packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsqlite3-dev libtag1-dev
          qt6-l10n-tools qt6-tools-dev libgtest-dev libgmock-dev libbenchmark-dev
          dbus-daemon clang libclang-rt-14-dev xvfb xauth
          qt6-multimedia-dev libgstreamer1.0-dev gstreamer1.0-plugins-base gstreamer1.0-plugins-good
          pulseaudio pulseaudio-utils)
packages+=("$@")

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: need root (or sudo) to install: ${missing[*]}" >&2; exit 1; }
  sudo="sudo"
fi
echo "install-deps: installing ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
