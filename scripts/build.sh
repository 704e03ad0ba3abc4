#!/usr/bin/env bash
# build.sh linux|win64|fuzz|asan|tsan [extra cmake args]: configures and builds one target tree under build/
# (all of it, or the targets named by ZQ_BUILD_TARGETS; only configures it when ZQ_CONFIGURE_ONLY=1).
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
kind=$1; shift
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
# Paths relative to the checkout in ccache's hashes, so that a fresh clone reuses the cache.
export CCACHE_BASEDIR="$here" CCACHE_NOHASHDIR=1
args=(-G Ninja -S "$here" -B "$here/build/$kind" "${launcher[@]}")
case "$kind" in
  linux) args+=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
  win64) args+=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_TOOLCHAIN_FILE="$here/cmake/mingw-w64-x86_64.cmake"
                -DZQ_TEST_TIMEOUT=300) ;;
  fuzz)  args+=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
                -DZQ_BUILD_FUZZ=ON -DZQ_BUILD_TESTS=OFF -DZQ_BUILD_BENCH=OFF) ;;
  asan)  args+=(-DCMAKE_BUILD_TYPE=Debug -DZQ_SANITIZE=address,undefined -DZQ_BUILD_BENCH=OFF) ;;
  tsan)  args+=(-DCMAKE_BUILD_TYPE=Debug -DZQ_SANITIZE=thread -DZQ_BUILD_BENCH=OFF) ;;
  *) echo "unknown build kind: $kind" >&2; exit 2 ;;
esac
cmake "${args[@]}" "$@" >/dev/null
[ "${ZQ_CONFIGURE_ONLY:-0}" = 1 ] && exit 0
# ZQ_BUILD_TARGETS, when set, names the only targets to build (space-separated).
targets=()
for target in ${ZQ_BUILD_TARGETS:-}; do targets+=(--target "$target"); done
cmake --build "$here/build/$kind" -j "$(nproc)" "${targets[@]}"
