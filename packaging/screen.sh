# SPDX-License-Identifier: GPL-3.0-or-later
# Functions for a machine without a display.

# start_screen: starts Xvfb, leaves its process in $screen_process and exports DISPLAY.
start_screen() {
    local number_file number= tries=0
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$number_file" 2>/dev/null &
    screen_process=$!
    while [ -z "$number" ] && [ $((tries++)) -lt 100 ]; do
        sleep 0.1
        number=$(cat "$number_file")
    done
    rm -f "$number_file"
    [ -n "$number" ] || die "Xvfb does not start"
    export DISPLAY=:$number
}

# take_screenshot PROCESS FILE: waits for a window of that process, then saves the screen.
take_screenshot() {
    local tries=0
    until xdotool search --onlyvisible --pid "$1" >/dev/null 2>&1; do
        kill -0 "$1" 2>/dev/null || return 1
        [ $((tries++)) -lt 150 ] || return 1
        sleep 0.1
    done
    sleep 0.7 # the first paint follows the window
    import -window root "$2"
}
