# Sourced: makes sure DISPLAY names a working X display, starting Xvfb when there is none.
# Sets KEL_XVFB_PID when it started one; kel_stop_xvfb stops it.
kel_start_xvfb() {
  if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then
    return 0
  fi
  local n
  for n in $(seq 90 120); do
    [ -e "/tmp/.X${n}-lock" ] || [ -e "/tmp/.X11-unix/X${n}" ] && continue
    Xvfb ":$n" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    KEL_XVFB_PID=$!
    export DISPLAY=":$n"
    local i
    for i in $(seq 1 50); do
      xdpyinfo >/dev/null 2>&1 && return 0
      sleep 0.1
    done
    kill "$KEL_XVFB_PID" 2>/dev/null || true
    unset KEL_XVFB_PID
  done
  echo "could not start Xvfb" >&2
  return 1
}

kel_stop_xvfb() {
  if [ -n "${KEL_XVFB_PID:-}" ]; then
    kill "$KEL_XVFB_PID" 2>/dev/null || true
    unset KEL_XVFB_PID
  fi
}
