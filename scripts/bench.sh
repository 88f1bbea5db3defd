#!/usr/bin/env bash
# Builds the grid benchmark (grid_bench.exe, the win64 preset) and runs it under Wine on a
# virtual X display when there is no display: the shared grid workload at 10,000, 100,000 and
# 1,000,000 rows, each figure the median of three processes, printed beside its target.
# Arguments go to the benchmark (row counts, e.g. "scripts/bench.sh 10000 100000").
# Works as root or through sudo on a fresh Debian 12 machine.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

bash scripts/install-deps.sh
source scripts/xdisplay.sh

echo "=== building grid_bench (win64)"
mkdir -p build
cmake --preset win64 >build/win64.configure.log 2>&1 || { cat build/win64.configure.log; exit 1; }
cmake --build --preset win64 --target grid_bench

export KEL_WINEPREFIX="$root/build/win64/wineprefix"
export WINEPREFIX="$KEL_WINEPREFIX"
scripts/wine-run.sh --init

# Wine shows the processor only by number and level: name the host's.
echo "=== host: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ *//'), $(nproc) cores online"
kel_start_xvfb || exit 1
rc=0
scripts/wine-run.sh build/win64/bin/grid_bench.exe "$@" || rc=$?
wineserver -w 2>/dev/null || true # let Wine leave the display before it goes
kel_stop_xvfb
exit "$rc"
