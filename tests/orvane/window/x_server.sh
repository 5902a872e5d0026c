# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034
# Sourced: an X server without a display, on a free number.

# start_x_server FOLDER: sets DISPLAY and x_server, its process; its picture is FOLDER/Xvfb_screen0.
start_x_server() {
    command -v Xvfb >/dev/null || fail "Xvfb is not installed"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -fbdir "$1" 3>"$1/display" 2>/dev/null &
    x_server=$!
    for _ in $(seq 100); do [ -s "$1/display" ] && break; sleep 0.1; done
    [ -s "$1/display" ] || fail "Xvfb did not start"
    DISPLAY=:$(cat "$1/display")
    export DISPLAY
}
