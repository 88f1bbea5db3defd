#!/usr/bin/env bash
# Builds the benchmarks (the win64 preset) and runs them under Wine on a virtual X display when
# there is no display: grid_bench.exe, the shared grid workload at 10,000, 100,000 and 1,000,000
# rows, each figure the median of three processes, printed beside its target; then
# controls_bench.exe, the typed controls' figures as "name value target" lines, each the median
# of many repetitions in one process.
# Arguments go to grid_bench (row counts, e.g. "scripts/bench.sh 10000 100000").
# Works on a fresh Debian 12 machine as root (sudo need not be installed) or through sudo.
set -euo pipefail
cd "$(dirname "$0")/.."

source scripts/xdisplay.sh
source scripts/win64-program.sh
kel_build_win64_program grid_bench
kel_build_win64_program controls_bench

# Wine shows the processor only by number and level: name the host's.
echo "=== host: $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2- | sed 's/^ *//'), $(nproc) cores online"
kel_start_xvfb || exit 1
rc=0
scripts/wine-run.sh build/win64/bin/grid_bench.exe "$@" || rc=$?
echo "=== controls_bench: name, median [ms], target [ms]"
scripts/wine-run.sh build/win64/bin/controls_bench.exe || rc=$?
wineserver -w 2>/dev/null || true # let Wine leave the display before it goes
kel_stop_xvfb
exit "$rc"
