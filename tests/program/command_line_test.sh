#!/bin/bash
# What `mygame` says on the terminal, and to whom: its options, and one line where it cannot do what is wanted.
#   command_line_test.sh FOLDER_OF_THE_PROGRAMS
set -eu

programs=$(cd "$1" && pwd)
# shellcheck source=tests/support/display.sh
. "$(dirname "$0")/../support/display.sh"

# says EXIT_CODE OUTPUT ERRORS ARGUMENT...: both as patterns.
says()
{
    local code=0
    timeout 20 "$programs/mygame" "${@:4}" > output 2> errors || code=$?
    [ $code = "$1" ] || fail "mygame ${*:4}: exit code $code"
    # shellcheck disable=SC2053 # patterns
    [[ "$(cat output)" == $2 ]] || fail "mygame ${*:4}: output '$(cat output)'"
    # shellcheck disable=SC2053
    [[ "$(cat errors)" == $3 ]] || fail "mygame ${*:4}: errors '$(cat errors)'"
}

# is_quiet_until_quit ERRORS: in a window.
is_quiet_until_quit()
{
    (exec "$programs/mygame" > output 2> errors) &
    game=$!
    wait_for "the window" find_window
    kill $game
    wait $game || fail "exit code $?"
    [ "$(cat output errors)" = "$1" ] || fail "on the terminal: '$(cat output errors)', expected '$1'"
}

start_display
first=$DISPLAY
cd "$work"
says 0 "usage: mygame*" "" --help
says 0 "mygame [0-9]*.[0-9]*.[0-9]*" "" --version
says 2 "" "mygame: unknown argument '--volume'; see mygame --help" --volume
says 2 "" "mygame: unknown argument 'b'; see mygame --help" --help b
echo 'clock 1' > game.mygame
echo 'jump' > faulty.mygame
nowhere="mygame: cannot open a window: there is no display"
DISPLAY='' says 0 "" "$nowhere"
DISPLAY='' says 0 "" "$nowhere" "$PWD/game.mygame"
DISPLAY='' says 2 "" "*faulty.mygame:1: *
$nowhere" "$PWD/faulty.mygame"
is_quiet_until_quit ""

mkdir bare
cp "$programs/mygame" bare
(programs=$work/bare is_quiet_until_quit "mygame: no pictures in \"$work/bare/\"; nothing will be drawn")

# Copies find each other on one display only.
(exec "$programs/mygame") &
one=$!
wait_for "the window" find_window
says 0 "" ""
(
    start_display
    cd "$work"
    is_quiet_until_quit ""
)
DISPLAY=$first says 0 "" ""
kill $one
wait $one
echo "the program says what it should"
