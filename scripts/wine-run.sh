#!/usr/bin/env bash
# Runs one Windows program under Wine, in a private prefix inside the build tree.
# CMake uses this as the cross-compiling emulator, so ctest runs the Windows tests.
# "wine-run.sh --init" only creates the prefix. KEL_WINEPREFIX names the prefix; by default
# it is "wineprefix" beside the program's folder.
set -euo pipefail
if [ "${1:-}" != "--init" ]; then
  exe=$1; shift
  bindir=$(cd "$(dirname "$exe")" && pwd)
  export WINEPREFIX=${KEL_WINEPREFIX:-$(dirname "$bindir")/wineprefix}
else
  export WINEPREFIX=${KEL_WINEPREFIX:?KEL_WINEPREFIX must name the prefix}
fi
export WINEDEBUG=${WINEDEBUG:--all}
# No Mono or Gecko: their install prompts would wait for a person.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export WINEARCH=win64
mkdir -p "$WINEPREFIX"
(
  flock 9
  if [ ! -f "$WINEPREFIX/system.reg" ]; then
    wineboot -i >/dev/null 2>&1 || true
    wineserver -w
  fi
  # Drive A: is a folder of the prefix, for the diskette tests.
  mkdir -p "$WINEPREFIX/drive_a"
  [ -e "$WINEPREFIX/dosdevices/a:" ] || ln -s ../drive_a "$WINEPREFIX/dosdevices/a:"
) 9>"$WINEPREFIX.lock"
[ "${1:-}" = "--init" ] && exit 0
exec wine "$exe" "$@"
