#!/usr/bin/env bash
# The whole test run: Linux build and tests, the threaded tests again under ThreadSanitizer,
# Windows x64 build and the same tests under Wine, then every fuzz target for a short bounded time.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bash "$here/scripts/deps.sh"

echo "== linux =="
bash "$here/scripts/build.sh" linux
(cd "$here/build/linux" && ctest --output-on-failure -j "$(nproc)")

echo "== threads (ThreadSanitizer) =="
bash "$here/scripts/test-threads.sh"

echo "== win64 (wine) =="
bash "$here/scripts/build.sh" win64
bash "$here/scripts/wine-init.sh"
(cd "$here/build/win64" && ctest --output-on-failure -j 2)

echo "== fuzz =="
bash "$here/scripts/fuzz.sh" "${ZQ_FUZZ_SECONDS:-15}"
