#!/usr/bin/env bash
# soak.sh [MINUTES] [WARMUP_SECONDS]: builds the soak program (Linux tree) and runs it for
# MINUTES (default 10): a continuous acquisition on SimDev1 with callbacks, attribute traffic
# from a second thread and tasks made and cleared in a loop. The program makes its own store
# with SimDev1 and SimDev2; it exits non-zero when a sample was lost, a call failed, or the
# resident memory grew by 1 MB or more after the warm-up (default 30 s).
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
minutes=${1:-10}
warmup=${2:-30}
ZQ_BUILD_TARGETS="soak" bash "$here/scripts/build.sh" linux
soak=$(find "$here/build/linux" -type f -name soak -perm -u+x | head -1)
[ -n "$soak" ] || { echo "soak.sh: the soak program was not built" >&2; exit 1; }
unset ZQCAI_STORAGE_FILE ZQCAI_REGISTRY_FILE
exec "$soak" "$minutes" "$warmup"
