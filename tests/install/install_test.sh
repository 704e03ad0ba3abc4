#!/usr/bin/env bash
# install_test.sh BUILD_DIR WORK_DIR: installs the build into a fresh prefix, makes the store with
# SimDev1 where the installation looks for it by default, and builds an outside program against
# the installation twice, with pkg-config and with find_package. Both run with no environment
# variable of the library's set: the installation finds its own files, the store and the
# simulated device's plug-in, acquires, and reads its own explanation files.
set -euo pipefail
build=$1 work=$2 here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work" && mkdir -p "$work"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
unset ZQCAI_REGISTRY_FILE ZQCAI_STORAGE_FILE ZQCAI_SYSTEM_FOLDER ZQSIM_SPEED

# The installed tool, told no store, makes the one the installed library uses.
"$prefix/bin/zqstorage" new-sim-store --force >/dev/null
[ -f "$prefix/share/zqcai/zqvorexStorage.db" ] \
  || { echo "the store is not in the installation's shared folder" >&2; exit 1; }

# The program read its 100 samples of a sine of 1 V peak, and the text of -200088.
check() {
  local output
  output=$("$1") || { echo "$2: the program failed" >&2; exit 1; }
  grep -Eq "^read 100 samples from SimDev1/ai0, the first -?(0\.[0-9]{3}|1\.0[01][0-9]) V$" <<<"$output" \
    || { echo "$2: no acquisition in: $output" >&2; exit 1; }
  grep -q "task handle does not refer to a task" <<<"$output" \
    || { echo "$2: the installed text was not read: $output" >&2; exit 1; }
}

export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
cc "$here/outside/outside.c" $(pkg-config --cflags --libs zqcai_rd_mbcs) -Wl,-rpath,"$prefix/lib" \
  -o "$work/outside-pkgconfig"
check "$work/outside-pkgconfig" "the pkg-config build"

cmake -S "$here/outside" -B "$work/outside-build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_RPATH="$prefix/lib" \
  >/dev/null
cmake --build "$work/outside-build" >/dev/null
check "$work/outside-build/outside" "the find_package build"
echo "installed, built both ways, acquired from SimDev1 and read the installed text"
