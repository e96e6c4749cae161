# Sourced by the build scripts: when ccache is installed, sets
# compiler_cache_options to the CMake options that compile through it. A
# second build of the same sources (another clone, the sanitizer pass) is then
# cheap; paths are taken relative to the clone ($root) so that clones in
# different folders share the cache.
compiler_cache_options=()
if command -v ccache >/dev/null; then
  export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$root}" CCACHE_NOHASHDIR="${CCACHE_NOHASHDIR:-1}"
  compiler_cache_options=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
