#!/usr/bin/env bash
# fuzz.sh [seconds] [target]: builds the fuzz targets with clang and runs each (or one) for a bounded time.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
secs=${1:-60}; only=${2:-}
bash "$here/scripts/build.sh" fuzz
shopt -s nullglob
for f in "$here"/build/fuzz/bin/fuzz_*; do
  name=$(basename "$f")
  [ -n "$only" ] && [ "$name" != "$only" ] && continue
  corpus="$here/build/fuzz/corpus/$name"; mkdir -p "$corpus"
  seeds="$here/fuzz/seeds/${name#fuzz_}"
  [ -d "$seeds" ] || seeds=""
  echo "-- $name for ${secs}s"
  "$f" -max_total_time="$secs" -print_final_stats=0 -artifact_prefix="$here/build/fuzz/" "$corpus" $seeds 2>&1 | tail -n 2
done
