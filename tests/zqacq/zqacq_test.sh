#!/usr/bin/env bash
# zqacq_test.sh BUILD_DIR WORK_DIR: installs the build into a fresh prefix, makes the store with
# SimDev1 with the installed zqstorage, and runs zqacq as a user would: every command's output
# and exit code, a failure's extended text, and the CSV file.
set -euo pipefail
build=$1 work=$2
rm -rf "$work" && mkdir -p "$work"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
unset ZQCAI_REGISTRY_FILE ZQCAI_STORAGE_FILE ZQCAI_SYSTEM_FOLDER
export ZQSIM_SPEED=5
acq=$prefix/bin/zqacq
"$prefix/bin/zqstorage" new-sim-store --force >/dev/null

fail() { echo "FAIL: $*" >&2; exit 1; }

# A read: two channels charted, and a line of statistics each whose range is the signal's.
out=$("$acq" read SimDev1/ai0:1 --rate 1000 --samples 500 --csv "$work/samples.csv")
grep -q "^500 samples per channel from 2 channels at 1000 S/s" <<<"$out" || fail "read header: $out"
grep -q $'\xe2\x96\x88' <<<"$out" || fail "no chart in: $out"
max=$(awk '$1 == "SimDev1/ai0" && NF == 6 {print $3}' <<<"$out")
awk -v m="$max" 'BEGIN {exit !(m > 0.9 && m < 1.1)}' || fail "ai0's maximum is $max, not about 1 V"
[ "$(wc -l <"$work/samples.csv")" -eq 501 ] || fail "the CSV file has not 500 samples and a header"
head -1 "$work/samples.csv" | grep -qx "time_s,SimDev1/ai0,SimDev1/ai1" || fail "CSV header"

# A failure: status and extended text on stderr, exit code 1.
set +e
err=$("$acq" read SimDev1/ai99 2>&1 >/dev/null); code=$?
set -e
[ $code -eq 1 ] || fail "a bad channel exits with $code"
grep -q "failed with status -[0-9]" <<<"$err" || fail "no status in: $err"
grep -q "SimDev1/ai99" <<<"$err" || fail "the extended text does not name the channel: $err"

# A mistake on the command line: exit code 2 and the usage.
set +e
"$acq" read SimDev1/ai0 --rates 5 >/dev/null 2>"$work/usage.txt"; code=$?
set -e
[ $code -eq 2 ] && grep -q "unknown option --rates" "$work/usage.txt" || fail "bad option: $code"

# Counting a pulse train zqacq starts on another counter.
out=$("$acq" count SimDev1/ctr0 --pulse SimDev1/ctr1 --freq 1000 --seconds 0.2)
edges=$(awk '{print $1}' <<<"$out")
[ "$edges" -gt 0 ] || fail "no edges counted: $out"

"$acq" error -200088 | grep -q "^-200088: ." || fail "error text"
"$acq" devices | grep -q "^SimDev1 " || fail "devices"
"$acq" write SimDev1/ao0 --sine 10 --seconds 0.1 | grep -q "^done" || fail "write"
echo "zqacq: read, CSV, failure, usage, count, error, devices and write as expected"
