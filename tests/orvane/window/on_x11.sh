#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives the probe in a real X window with a real pointer. Argument: the probe.
set -euo pipefail
. "$(dirname "$0")/x_server.sh"
folder=$(mktemp -d)
x_server=''
probe=''
trap 'kill $probe $x_server 2>/dev/null || true; rm -rf "$folder"' EXIT
fail() { printf 'on_x11: %s\n' "$*" >&2; [ ! -f "$folder/out" ] || cat "$folder/out" >&2; exit 1; }
# awaits PATTERN: until the probe has said it.
awaits() {
    for _ in $(seq 100); do grep -q -- "$1" "$folder/out" && return; sleep 0.1; done
    fail "nothing like '$1' arrived"
}
command -v xdotool >/dev/null || fail "xdotool is not installed"
start_x_server "$folder"
# What the system's libraries never free is not counted.
export SDL_VIDEODRIVER=x11 ASAN_OPTIONS=detect_leaks=0

"$1" "$folder/shot.png" "$folder/Xvfb_screen0" 50 40 >"$folder/out" 2>&1 &
probe=$!
awaits 'size 400 300'
window=$(xdotool search --sync --name 'window probe' | tail -1)
xdotool windowmove --sync "$window" 50 40 windowfocus --sync "$window"
xdotool mousemove --window "$window" 20 30 mousedown 1 mousemove --window "$window" 120 130 mouseup 1
awaits 'down 20 30'
awaits 'move 120 130'
awaits 'up 120 130'

xdotool key i
awaits 'idle '
read -r _ cost _ pixels _ < <(grep '^idle ' "$folder/out")
[ "$cost" -lt 5000 ] || fail "idling for two seconds took $cost us of CPU"
[ "$pixels" = 0 ] || fail "idling showed $pixels pixels"
xdotool key s
awaits 'compared 120000, different 0'
xdotool windowsize "$window" 500 350
awaits 'size 500 350'
sleep 0.2
xdotool key s
awaits 'compared 175000, different 0'
xdotool key q
wait "$probe" || fail "the probe failed"
probe=''
cat "$folder/out"
