#!/usr/bin/env bash
# consumer.sh PREFIX WORK [TOOLCHAIN_FILE SYSROOT EMULATOR...]: builds the
# consumer program against the tree installed in PREFIX, once with
# find_package(MediaPlayerMainWindow) and once with pkg-config, in WORK, and
# runs each on a folder of two songs and a text. For a tree built for another
# processor, the consumer is built with the same toolchain file (the project's
# own, which takes its sysroot as MP_ARM_SYSROOT) against SYSROOT, where PREFIX
# then lies, and runs through EMULATOR.
set -euo pipefail
prefix="$1" work="$2" toolchain="${3:-}" sysroot="${4:-}"
emulator=("${@:5}")
here="$(cd "$(dirname "$0")" && pwd)"
rm -rf "$work" && mkdir -p "$work/folder" "$work/data"
touch "$work/folder/a.mp3" "$work/folder/b.mp3" "$work/folder/notes.txt"
export MP_DATA_DIR="$work/data" MP_QCOP_LOCAL=1 QT_QPA_PLATFORM=offscreen
unset LD_LIBRARY_PATH MP_LIBRARY
expected="window made and deleted; folder list: 2 entries, current 1: b.mp3"

check() { # NAME PROGRAM
  local output
  output="$("${emulator[@]}" "$2" "$work/folder" | tail -n 1)"  # after the library's trace lines
  if [ "$output" != "$expected" ]; then
    echo "FAIL ($1): '$output', expected '$expected'" >&2
    exit 1
  fi
  echo "ok ($1): $output"
}

cross_options=()
if [ -n "$toolchain" ]; then
  cross_options=(-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DMP_ARM_SYSROOT="$sysroot")
fi
cmake -S "$here/consumer" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" "${cross_options[@]}" >/dev/null
cmake --build "$work/cmake" >/dev/null
check "find_package" "$work/cmake/consumer"

# The compiler CMake chose above; for another processor, pkg-config reads the
# sysroot's modules (Qt's) and puts their paths inside the sysroot.
compiler="$(sed -n 's/^set(CMAKE_CXX_COMPILER "\(.*\)")$/\1/p' "$work"/cmake/CMakeFiles/*/CMakeCXXCompiler.cmake)"
compile=("$compiler")
pkg_config=(env PKG_CONFIG_PATH="$(dirname "$(find "$prefix" -name mediaplayer-mainwindow.pc)")")
if [ -n "$sysroot" ]; then
  triplet="$("$compiler" -dumpmachine)"
  compile+=(--sysroot="$sysroot")
  pkg_config+=(PKG_CONFIG_LIBDIR="$sysroot/usr/lib/$triplet/pkgconfig:$sysroot/usr/share/pkgconfig"
    PKG_CONFIG_SYSROOT_DIR="$sysroot")
fi
flags="$("${pkg_config[@]}" pkg-config --cflags --libs mediaplayer-mainwindow)"
libdir="$("${pkg_config[@]}" pkg-config --variable=libdir mediaplayer-mainwindow)"
# shellcheck disable=SC2086
"${compile[@]}" -std=c++17 -fPIC "$here/consumer/main.cpp" -o "$work/consumer-pc" $flags -Wl,-rpath,"$libdir"
check "pkg-config" "$work/consumer-pc"
