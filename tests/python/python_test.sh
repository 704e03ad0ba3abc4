#!/usr/bin/env bash
# python_test.sh BUILD_DIR WORK_DIR PYTHON_DIR: installs the build into a fresh prefix, makes the
# store with SimDev1, runs the package's pytest suite against the installed package, then the
# plotting example, whose PNG file must be there and be a PNG.
set -euo pipefail
build=$1 work=$2 python_dir=$3
python=/usr/bin/python3
rm -rf "$work" && mkdir -p "$work"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
unset ZQCAI_REGISTRY_FILE ZQCAI_STORAGE_FILE ZQCAI_SYSTEM_FOLDER ZQCAI_LIBRARY
export ZQSIM_SPEED=5 MPLBACKEND=Agg MPLCONFIGDIR=$work/matplotlib
"$prefix/bin/zqstorage" new-sim-store --force >/dev/null
export PYTHONPATH=$prefix/lib/python3/dist-packages PYTHONDONTWRITEBYTECODE=1
"$python" -c 'import zqcai, sys; sys.exit(0 if zqcai.__file__.startswith(sys.argv[1]) else 1)' "$prefix" \
  || { echo "the installed package was not the one imported" >&2; exit 1; }
(cd "$work" && "$python" -m pytest -q -p no:cacheprovider -W error "$python_dir/tests")
"$python" "$python_dir/examples/plot_acquisition.py" "$work/acquisition.png"
head -c 8 "$work/acquisition.png" | od -An -tx1 | grep -q "89 50 4e 47 0d 0a 1a 0a" \
  || { echo "the example did not write a PNG" >&2; exit 1; }
