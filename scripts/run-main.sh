#!/usr/bin/env bash
# The main job: builds the library and its companions for Linux, installs them into
# build/linux/stage as a user's installation would be, makes the store with the simulated device
# SimDev1 if the installation has none, and acquires one second at 1 kS/s from four of its analog
# inputs with zqacq, which prints a chart and the statistics of every channel.
# Any arguments replace the acquisition's: bash scripts/run-main.sh read SimDev1/ai0 --samples 200
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
stage=$here/build/linux/stage
bash "$here/scripts/deps.sh" >&2
# Only what the installation holds: the tests and benchmarks are test-all.sh's.
export ZQ_BUILD_TARGETS="zqcai_rd_mbcs zqvorexStorage zqvorexTaskCatalog zqvorexDebugServer zqvorexSim zqxlator
  ZqSpyLog zqstorage zqerror zqacq zq_explanations"
bash "$here/scripts/build.sh" linux >&2
cmake --install "$here/build/linux" --prefix "$stage" >/dev/null
# The installation finds its own files: no variable of the library's should point elsewhere.
unset ZQCAI_REGISTRY_FILE ZQCAI_STORAGE_FILE ZQCAI_SYSTEM_FOLDER ZQSIM_SPEED
if ! "$stage/bin/zqstorage" devices 2>/dev/null | grep -q '^SimDev1 '; then
  # A fresh store, or SimDev1 added to the one there is.
  "$stage/bin/zqstorage" new-sim-store 2>/dev/null || "$stage/bin/zqstorage" add-sim-device SimDev1
fi
if [ $# -eq 0 ]; then
  set -- read SimDev1/ai0:3 --rate 1000 --samples 1000
fi
echo "\$ zqacq $*"
exec "$stage/bin/zqacq" "$@"
