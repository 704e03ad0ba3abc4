#!/usr/bin/env bash
# The whole test run: Linux build and tests, the same tests again under AddressSanitizer and
# UndefinedBehaviorSanitizer, the threaded tests under ThreadSanitizer, Windows x64 build and the
# same tests under Wine, then every fuzz target for a short bounded time.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bash "$here/scripts/deps.sh"

echo "== linux =="
bash "$here/scripts/build.sh" linux
(cd "$here/build/linux" && ctest --output-on-failure -j "$(nproc)")

echo "== asan+ubsan (AddressSanitizer, LeakSanitizer, UndefinedBehaviorSanitizer) =="
bash "$here/scripts/build.sh" asan
(cd "$here/build/asan" &&
  ASAN_OPTIONS="detect_stack_use_after_return=1 check_initialization_order=1 strict_init_order=1 ${ASAN_OPTIONS:-}" \
  UBSAN_OPTIONS="print_stacktrace=1 ${UBSAN_OPTIONS:-}" \
  LSAN_OPTIONS="suppressions=$here/tests/abandoned_root.lsan ${LSAN_OPTIONS:-}" \
  ctest --output-on-failure -j "$(nproc)")

echo "== threads (ThreadSanitizer) =="
bash "$here/scripts/test-threads.sh"

echo "== win64 (wine) =="
bash "$here/scripts/build.sh" win64
bash "$here/scripts/wine-init.sh"
# A test that fails under Wine runs once more: Wine now and then fails to start a program at
# all (no output, at once) when two start together. The other stages retry nothing.
(cd "$here/build/win64" && ctest --output-on-failure -j 2 --repeat until-pass:2)

echo "== fuzz =="
bash "$here/scripts/fuzz.sh" "${ZQ_FUZZ_SECONDS:-10}"
