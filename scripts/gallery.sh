#!/usr/bin/env bash
# Builds the gallery (KelGallery.exe, the win64 preset) and shows it under Wine: live on the
# user's X display when there is one, otherwise on a virtual display, saving a PNG snapshot of
# every page in build/gallery. Works on a fresh Debian 12 machine as root (sudo need not be
# installed) or as a user who may use sudo.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

source scripts/xdisplay.sh
source scripts/win64-program.sh
kel_build_win64_program KelGallery

# Through sudo, root may still reach the user's display with the user's X cookie.
if [ -z "${XAUTHORITY:-}" ] && [ -n "${SUDO_USER:-}" ]; then
  user_home=$(getent passwd "$SUDO_USER" | cut -d: -f6) || user_home=
  if [ -n "$user_home" ] && [ -f "$user_home/.Xauthority" ]; then
    export XAUTHORITY="$user_home/.Xauthority"
  fi
fi

gallery=build/win64/bin/KelGallery.exe
if [ -n "${DISPLAY:-}" ]; then
  if xdpyinfo >/dev/null 2>&1; then
    echo "=== running the gallery on display $DISPLAY (close its window to end)"
    exec scripts/wine-run.sh "$gallery"
  fi
  # Typically root in a shell opened with su, without the cookie of the display's owner.
  echo "=== cannot open display $DISPLAY; for another user's display, name that user's cookie" \
    "file: XAUTHORITY=/home/USER/.Xauthority scripts/gallery.sh" >&2
fi

echo "=== no usable X display: saving snapshots of the gallery's pages on a virtual display"
kel_start_xvfb || exit 1
snapshots=build/gallery
mkdir -p "$snapshots"
rm -f "$snapshots"/*.png
rc=0
scripts/wine-run.sh "$gallery" --snapshot "$snapshots" || rc=$?
wineserver -w 2>/dev/null || true # let Wine leave the display before it goes
kel_stop_xvfb
if [ "$rc" -ne 0 ]; then
  echo "=== the gallery failed (exit code $rc)" >&2
  exit "$rc"
fi
echo "=== snapshots of the gallery's pages are in $root/$snapshots/"
