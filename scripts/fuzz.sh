#!/usr/bin/env bash
# fuzz.sh [seconds] [target]: builds the fuzz targets with clang and runs each (or one) for a bounded time.
# Each target prints its final line (executions, cov:, ft:, corp:); a finding prints the
# sanitizer's summary and the input kept under build/fuzz/, the other targets still run, and
# the script fails at the end.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
secs=${1:-60}; only=${2:-}
bash "$here/scripts/build.sh" fuzz
shopt -s nullglob
failed=()
for f in "$here"/build/fuzz/bin/fuzz_*; do
  name=$(basename "$f")
  [ -n "$only" ] && [ "$name" != "$only" ] && continue
  corpus="$here/build/fuzz/corpus/$name"; mkdir -p "$corpus"
  seeds="$here/fuzz/seeds/${name#fuzz_}"
  [ -d "$seeds" ] || seeds=""
  log="$here/build/fuzz/$name.log"
  echo "-- $name for ${secs}s"
  if "$f" -max_total_time="$secs" -print_final_stats=0 -artifact_prefix="$here/build/fuzz/$name-" \
      "$corpus" $seeds >"$log" 2>&1; then
    grep -E '^#[0-9]+' "$log" | tail -n 1
  else
    grep -E 'ERROR|SUMMARY|runtime error|Test unit written' "$log" || tail -n 20 "$log"
    failed+=("$name")
  fi
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "fuzz findings in: ${failed[*]} (logs in build/fuzz/)" >&2
  exit 1
fi
