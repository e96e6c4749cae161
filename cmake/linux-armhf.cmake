# Cross-building for 32-bit ARM Linux (Debian armhf) with Debian's cross
# compiler, against a sysroot of armhf packages (scripts/arm-sysroot.sh makes
# one), and running the programs under user-mode QEMU:
#   cmake -S . -B build-arm -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/linux-armhf.cmake \
#         -DMP_ARM_SYSROOT=build-arm/sysroot
# scripts/test-arm.sh does all of it and runs the tests.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

set(MP_ARM_SYSROOT "" CACHE PATH "The armhf sysroot (scripts/arm-sysroot.sh makes one)")
if(NOT MP_ARM_SYSROOT)
  message(FATAL_ERROR "Set MP_ARM_SYSROOT to an armhf sysroot (scripts/arm-sysroot.sh makes one)")
endif()
get_filename_component(MP_ARM_SYSROOT "${MP_ARM_SYSROOT}" ABSOLUTE)
# The checks CMake compiles in a project of their own see the sysroot too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MP_ARM_SYSROOT)

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_SYSROOT "${MP_ARM_SYSROOT}")
# GCC notes on every call that passes a std::initializer_list by value that the
# ARM calling convention for it changed in GCC 7.1; everything here is built by
# one compiler, so the note says nothing.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config reads the sysroot's .pc files and prefixes their paths with it.
set(ENV{PKG_CONFIG_DIR} "")
set(ENV{PKG_CONFIG_LIBDIR}
  "${MP_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${MP_ARM_SYSROOT}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${MP_ARM_SYSROOT}")

# Programs of the build (tests, and the programs the tests start) run under
# user-mode QEMU, which finds the ARM loader and libraries in the sysroot.
# GStreamer (the media output) is told where the sysroot's plug-ins are: its
# scan of its own plug-in folder finds nothing through QEMU's mapping. It loads
# them in its own process, as its scanning helper is an ARM program that this
# machine cannot start; the registry of what it found stays in the sysroot,
# beside the plug-ins it describes, for every program after the first. Its
# JACK sink is left out: without a sound server GStreamer tries it, and JACK's
# database in /dev/shm, shared with this machine's own programs, is in the
# other processor's format (the ARM library says so on standard error).
# (QEMU splits each -E value at its commas.)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L "${MP_ARM_SYSROOT}"
  -E "GST_PLUGIN_SYSTEM_PATH=${MP_ARM_SYSROOT}/usr/lib/arm-linux-gnueabihf/gstreamer-1.0"
  -E GST_REGISTRY_FORK=no
  -E "GST_REGISTRY=${MP_ARM_SYSROOT}/var/cache/gstreamer-1.0/registry.bin"
  -E GST_PLUGIN_FEATURE_RANK=jackaudiosink:NONE)
