#!/usr/bin/env bash
# install_test.sh BUILD_DIR WORK_DIR: installs the build into a fresh prefix and builds an outside
# program against it twice, with pkg-config and with find_package, then runs both with no
# environment variable of the library's set: the installation finds its own files.
set -euo pipefail
build=$1 work=$2 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work" && mkdir -p "$work"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
unset ZQCAI_REGISTRY_FILE ZQCAI_STORAGE_FILE ZQCAI_SYSTEM_FOLDER

export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
cc "$here/outside/outside.c" $(pkg-config --cflags --libs zqcai_rd_mbcs) -Wl,-rpath,"$prefix/lib" \
  -o "$work/outside-pkgconfig"
"$work/outside-pkgconfig" | grep -q "task handle does not refer to a task" \
  || { echo "the pkg-config build did not read the installed text" >&2; exit 1; }

cmake -S "$here/outside" -B "$work/outside-build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_RPATH="$prefix/lib" \
  >/dev/null
cmake --build "$work/outside-build" >/dev/null
"$work/outside-build/outside" | grep -q "task handle does not refer to a task" \
  || { echo "the find_package build did not read the installed text" >&2; exit 1; }
echo "installed, built both ways, and ran"
