#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Plays the game in a real X window with a real mouse and keyboard. Argument: the game.
set -euo pipefail
. "$(dirname "$0")/../../orvane/window/x_server.sh"
folder=$(mktemp -d)
x_server=''
game=''
trap 'kill $game $x_server 2>/dev/null || true; rm -rf "$folder"' EXIT
fail() { printf 'on_x11: %s\n' "$*" >&2; [ ! -f "$folder/out" ] || tail -n 40 "$folder/out" >&2; exit 1; }
# awaits PATTERN: until the game has said it since the last call.
awaits() {
    for _ in $(seq 200); do
        if tail -n +"$seen" "$folder/out" | grep -q -- "$1"; then
            seen=$(($(wc -l <"$folder/out") + 1))
            return
        fi
        sleep 0.05
    done
    fail "nothing like '$1' arrived"
}
seen=1
command -v xdotool >/dev/null || fail "xdotool is not installed"
start_x_server "$folder"
# What the system's libraries never free is not counted.
export SDL_VIDEODRIVER=x11 ASAN_OPTIONS=detect_leaks=0 XDG_DATA_HOME=$folder/data XDG_CACHE_HOME=$folder/cache
mkfifo "$folder/in"
"$1" --deal 7 --size 800x600 --describe <"$folder/in" >"$folder/out" 2>&1 &
game=$!
exec 3>"$folder/in"
awaits 't7: ## ## ## ## ## ## 2d'
window=$(xdotool search --sync --name '^Klondike$' | tail -1)
xdotool windowmove --sync "$window" 20 30 windowfocus --sync "$window"
sleep 3 # the cards are dealt

# at X Y: the mouse goes there, in hundredths of the window.
at() { xdotool mousemove --window "$window" $((800 * $1 / 100)) $((600 * $2 / 100)); }
at 8 13
xdotool click 1
awaits 'waste: Qh'
sleep 1
# The queen goes to the king of clubs: dragged, with a stop on the way that is none.
at 22 13
xdotool mousedown 1
at 30 20
at 60 70
at 22 45
xdotool mouseup 1
awaits 't2: ## Kc Qh'
sleep 1
xdotool key u
awaits 'waste: Qh'
sleep 1
# Two clicks on her play her there again.
at 22 13
xdotool click --repeat 2 --delay 60 1
awaits 't2: ## Kc Qh'
printf 'undo\nundo\n' >&3
awaits 'stock: 24 cards'
# Left alone, it costs nothing.
sleep 2
ticks() { read -r -a fields <"/proc/$game/stat"; echo $((fields[13] + fields[14])); }
before=$(ticks)
sleep 2
cost=$(($(ticks) - before))
[ "$cost" -le 1 ] || fail "idling for two seconds took $cost ticks of CPU"
xdotool windowsize "$window" 640 480
sleep 1
xdotool key d
awaits 'stock: 23 cards'
printf 'quit\n' >&3
wait "$game" || fail "the game failed"
game=''
[ -s "$folder/data/cardtable-klondike/game" ] || fail "the game was not kept"
exec 3>&-
# Without a display: one line.
if SDL_VIDEODRIVER=x11 DISPLAY=:987 "$1" >"$folder/none" 2>&1; then
    fail "it ran without a display"
fi
[ "$(wc -l <"$folder/none")" = 1 ] && grep -q 'no display' "$folder/none" || fail "a missing display is not told in a line: $(cat "$folder/none")"
