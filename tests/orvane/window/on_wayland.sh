#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Opens the probe in a Wayland compositor that draws into an X server without a display: it has a mouse and keyboard,
# which SDL needs up to 2.28. Argument: the probe.
set -euo pipefail
. "$(dirname "$0")/x_server.sh"
XDG_RUNTIME_DIR=$(mktemp -d)
x_server=''
compositor=''
chmod 700 "$XDG_RUNTIME_DIR"
trap 'kill $compositor $x_server 2>/dev/null || true; rm -rf "$XDG_RUNTIME_DIR"' EXIT
fail() { printf 'on_wayland: %s\n' "$*" >&2; cat "$XDG_RUNTIME_DIR"/*.log >&2 || true; exit 1; }
command -v weston >/dev/null || fail "weston is not installed"
start_x_server "$XDG_RUNTIME_DIR"
export XDG_RUNTIME_DIR WAYLAND_DISPLAY=wayland-probe SDL_VIDEODRIVER=wayland
export ASAN_OPTIONS=detect_leaks=0 # what the system's libraries never free is not counted

weston --no-config --backend=x11-backend.so --use-pixman --socket="$WAYLAND_DISPLAY" --idle-time=0 \
    >"$XDG_RUNTIME_DIR/weston.log" 2>&1 &
compositor=$!
for _ in $(seq 100); do [ -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ] && break; sleep 0.1; done
timeout 20 "$1" once >"$XDG_RUNTIME_DIR/probe.log" 2>&1 || fail "the probe failed"
frames=$(sed -n 's/^frames //p' "$XDG_RUNTIME_DIR/probe.log")
[ "${frames:-0}" -ge 20 ] || fail "only ${frames:-0} frames were shown"
printf 'frames %s\n' "$frames"
