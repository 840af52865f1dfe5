#!/bin/bash
# Plays `mygame` in a window with real pointer and key events, and compares what it shows with what the same
# program shows on the virtual device.
#   end_to_end_test.sh FOLDER_OF_THE_PROGRAMS
set -eu

programs=$(cd "$1" && pwd)
# shellcheck source=tests/support/display.sh
. "$(dirname "$0")/../support/display.sh"
start_display
cd "$work"

draw_menus

mkdir played
expected_log=$'InitOpening display...\nDisplay properties:\nScreen Width:240\nScreen Height: 320\nBPP: 16\n'
expected_log+=$'Format: 128\nStandard display\nMain loop stopped'

leave_game()
{
    tap 225 305
    wait_for "the game to stand still under its menu" stands_still
    tap 120 175
    wait_for "the main menu with \"Resume\"" shows "$menus/resumable.png"
}

start played
xprop -id "$window" _NET_WM_ICON | grep -q "Icon (64 x 64)" || fail "the window has no icon"
start_game
for x in 60 120 180; do
    tap $x 120
    sleep 0.4
done
xdotool key shift Tab a ctrl+Escape
wait_for "the game to go on after keys that are not the game's" in_game
leave_game
tap 120 115
wait_for "the game to go on after \"Resume\"" in_game
leave_game

# Another game, since a time attack is soon over.
xev > xev.log 2>&1 &
other_window() { other=$(xdotool search --name 'Event Tester' | head -n 1) && [ -n "$other" ]; }
wait_for "another window" other_window
xdotool windowfocus --sync "$window" windowraise "$window"
start_game resumable 145
xdotool windowfocus --sync "$other"
wait_for "the game to stand still in the background" stands_still
xdotool windowfocus --sync "$window" windowraise "$window"
wait_for "the game to go on in the foreground" in_game
leave_game
tap 120 205
wait_for "the program to end after \"Exit\"" ended "$game"
wait "$game" || fail "exit code $?"
[ "$(cat played/log.txt)" = "$expected_log" ] || fail "the log: $(cat played/log.txt)"
echo "a game was played, left, resumed and ended"
