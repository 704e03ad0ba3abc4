#!/usr/bin/env bash
# The main job: builds the library for Linux and runs the example program against it.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bash "$here/scripts/deps.sh"
bash "$here/scripts/build.sh" linux
"$here/build/linux/bin/zq_example" "$@"
