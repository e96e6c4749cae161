#!/usr/bin/env bash
# consumer.sh PREFIX WORK: builds the consumer program against the tree
# installed in PREFIX, once with find_package(MediaPlayerMainWindow) and once
# with pkg-config, in WORK, and runs each on a folder of two songs and a text.
set -euo pipefail
prefix="$1" work="$2"
here="$(cd "$(dirname "$0")" && pwd)"
rm -rf "$work" && mkdir -p "$work/folder" "$work/data"
touch "$work/folder/a.mp3" "$work/folder/b.mp3" "$work/folder/notes.txt"
export MP_DATA_DIR="$work/data" MP_QCOP_LOCAL=1 QT_QPA_PLATFORM=offscreen
unset LD_LIBRARY_PATH MP_LIBRARY
expected="window made and deleted; folder list: 2 entries, current 1: b.mp3"

check() { # NAME PROGRAM
  local output
  output="$("$2" "$work/folder" | tail -n 1)"  # after the library's trace lines
  if [ "$output" != "$expected" ]; then
    echo "FAIL ($1): '$output', expected '$expected'" >&2
    exit 1
  fi
  echo "ok ($1): $output"
}

cmake -S "$here/consumer" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
check "find_package" "$work/cmake/consumer"

pc_dir="$(dirname "$(find "$prefix" -name mediaplayer-mainwindow.pc)")"
flags="$(PKG_CONFIG_PATH="$pc_dir" pkg-config --cflags --libs mediaplayer-mainwindow)"
libdir="$(PKG_CONFIG_PATH="$pc_dir" pkg-config --variable=libdir mediaplayer-mainwindow)"
# shellcheck disable=SC2086
g++ -std=c++17 -fPIC "$here/consumer/main.cpp" -o "$work/consumer-pc" $flags -Wl,-rpath,"$libdir"
check "pkg-config" "$work/consumer-pc"
