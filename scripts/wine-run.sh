#!/usr/bin/env bash
# Runs one Windows program under Wine, in a private prefix inside the build tree.
# CMake uses this as the cross-compiling emulator, so ctest runs the Windows tests.
set -euo pipefail
exe=$1; shift
bindir=$(cd "$(dirname "$exe")" && pwd)
export WINEPREFIX=${KEL_WINEPREFIX:-$(dirname "$bindir")/wineprefix}
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
) 9>"$WINEPREFIX.lock"
exec wine "$exe" "$@"
