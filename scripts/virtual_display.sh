#!/usr/bin/env bash
# Runs a command in a virtual display of its own, with a window manager, a session bus and the accessibility
# bus, and takes all of it down behind it.
#   scripts/virtual_display.sh COMMAND [ARG ...]      SCREEN=1280x800 sets the size
set -eu
run=$(mktemp -d)
chmod 700 "$run"
exec 3>"$run/display"
Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x800}x24" -nolisten tcp -noreset 2>"$run/xvfb.log" &
server=$!
finish() {
  kill "$server" 2>/dev/null || true
  wait "$server" 2>/dev/null || true
  rm -rf "$run"
}
trap finish EXIT
for _ in $(seq 200); do
  [ -s "$run/display" ] && break
  kill -0 "$server" 2>/dev/null || { cat "$run/xvfb.log" >&2; exit 1; }
  sleep 0.05
done
DISPLAY=:$(cat "$run/display")
export DISPLAY XDG_RUNTIME_DIR="$run"
unset WAYLAND_DISPLAY
# The window manager is there once it has put its mark on the root window.
dbus-run-session -- sh -c '
  openbox >/dev/null 2>&1 &
  tries=0
  until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id"; do
    tries=$((tries + 1))
    [ $tries -lt 200 ] || { echo "the window manager did not start" >&2; exit 1; }
    sleep 0.05
  done
  exec "$@"' virtual_display "$@"
