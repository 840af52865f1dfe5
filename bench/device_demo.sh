# For scripts that run device_demo on a display of their own. To be sourced by bash, with the folder of the
# programs as the script's argument.
# shellcheck shell=bash disable=SC2034

# shellcheck source=tests/support/display.sh
. "$(dirname "${BASH_SOURCE[0]}")/../tests/support/display.sh"

programs=$(realpath "${1:-$project/build/release/bin}")
[ -x "$programs/device_demo" ] || fail "$programs/device_demo is missing: build the project first"

# An X server's answer for "no window", which xdotool can give the keyboard to.
no_window=1
patience=20 # seconds

# Starts the program, or the one given, and waits for its first picture. Sets `demo`, its process, `window`,
# `picture_ms`, the time that took, and `tick`, the game's time then, in hexadecimal digits. What it writes is
# read from descriptor 4.
start_demo()
{
    local begin=${EPOCHREALTIME/./}
    [ -p "$work/output" ] || mkfifo "$work/output"
    "${1:-$programs/device_demo}" > "$work/output" 2> "$work/errors" &
    demo=$!
    exec 4< "$work/output"
    read -r -t $patience _ tick <&4 || fail "no first picture; does another copy run?"
    picture_ms=$(((${EPOCHREALTIME/./} - begin) / 1000))
    window=$(xdotool search --pid $demo --name '^MyGame$' | tail -1)
}

# await_end WHAT: waits for the end of the program, whatever it still writes; it must be a clean one.
await_end()
{
    timeout $patience cat <&4 > /dev/null || fail "$1: the program did not end"
    exec 4<&-
    wait "$demo" 2> /dev/null || fail "$1: exit code $?"
    [ "$(tail -n 1 log.txt)" = "Main loop stopped" ] || fail "$1: the log: $(cat log.txt)"
}

# stop_demo [SIGNAL]
stop_demo()
{
    kill -"${1:-TERM}" "$demo"
    await_end "end by a signal, ${1:-TERM}"
}
