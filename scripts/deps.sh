#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those that are missing.
set -euo pipefail
pkgs=(cmake ninja-build g++ python3 libgtest-dev libgmock-dev libbenchmark-dev unicode-data
      g++-mingw-w64-x86-64-posix wine64 clang libclang-rt-14-dev libsqlite3-dev
      python3-numpy python3-pytest python3-matplotlib)
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
command -v python3 >/dev/null || missing+=(python3)
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  SUDO=""; [ "$(id -u)" = 0 ] || SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
