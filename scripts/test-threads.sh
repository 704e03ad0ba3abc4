#!/usr/bin/env bash
# The test programs whose threads share state (CTest label "threads", set where each test is
# declared), built with ThreadSanitizer and run: a data race or a lock-order inversion fails the
# run. Each labelled test is a program of the same name (zq_test), so the names are the targets.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
ZQ_CONFIGURE_ONLY=1 bash "$here/scripts/build.sh" tsan
tests=$(cd "$here/build/tsan" && ctest -N -L threads | sed -n 's/^ *Test *#[0-9]*: *\([^ ]*\)$/\1/p' | tr '\n' ' ')
if [ -z "${tests// /}" ]; then
  echo "test-threads: no test carries the label threads" >&2
  exit 1
fi
ZQ_BUILD_TARGETS="$tests" bash "$here/scripts/build.sh" tsan
export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 ${TSAN_OPTIONS:-}"
(cd "$here/build/tsan" && ctest --output-on-failure -j "$(nproc)" -L threads)
