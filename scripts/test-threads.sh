#!/usr/bin/env bash
# The test programs whose threads share state, built with ThreadSanitizer and run: a data race
# or a lock-order inversion fails the run.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
tests=(test_contexts test_pool test_globals test_tasknames test_toggles test_debug test_task test_task_drive test_task_stress test_sim_drive)
ZQ_BUILD_TARGETS="${tests[*]}" bash "$here/scripts/build.sh" tsan
export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 ${TSAN_OPTIONS:-}"
regex="^($(IFS='|'; echo "${tests[*]}"))\$"
(cd "$here/build/tsan" && ctest --output-on-failure -j "$(nproc)" -R "$regex")
