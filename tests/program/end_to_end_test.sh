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

expected_log=$'InitOpening display...\nDisplay properties:\nScreen Width:240\nScreen Height: 320\nBPP: 16\n'
expected_log+=$'Format: 128\nStandard display\nMain loop stopped'

leave_game()
{
    tap 225 305
    wait_for "the game to stand still under its menu" stands_still
    tap 120 175
    wait_for "the main menu with \"Resume\"" shows "$menus/resumable.png"
}

mkdir -p played/recordings
touch played/recordings/1999-12-{01..31}.mygame
start "$work/played"
xprop -id "$window" _NET_WM_ICON | grep -q "Icon (64 x 64)" || fail "the window has no icon"
start_game
for x in 60 120 180; do
    tap $x 120
    sleep 0.4
done
xdotool key shift Tab a ctrl+Escape
wait_for "the game to go on after keys that are not the game's" in_game
recorded() { grep -qs ' check ' played/recordings/*; }
wait_for "lines of a game that is not over in its recording" recorded
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
recording=$(find played/recordings -name '*.mygame' | sort | tail -n 1)
[[ $recording =~ /[0-9]{4}(-[0-9]{2}){2}\ [0-9]{2}(\.[0-9]{2}){2}\.mygame$ ]] || fail "no name for a recording: $recording"
[ "$(grep -c ' check ' "$recording")" -ge 5 ] || fail "the recording holds too few checks: $(cat "$recording")"
"$programs/replay" "$recording" || fail "the recording, played, shows something else: $(cat "$recording")"
rm log.txt

# title: what the window says where a recording is watched. says PATTERN: whether it is like that.
title() { xprop -id "$window" _NET_WM_NAME | sed 's/.* = "\(.*\)"$/\1/'; }
# shellcheck disable=SC2053
says() { [[ "$(title)" == $1 ]]; }
# watch FILE: in a window that xdotool finds by its class alone.
watch()
{
    played/mygame "$1" 2> watching.log &
    game=$!
    find_viewer() { window=$(xdotool search --onlyvisible --class '^mygame$' | head -n 1) && [ -n "$window" ]; }
    wait_for "the window in which a recording is watched" find_viewer
    xdotool windowfocus "$window"
}
# leave STATUS COMMAND...
leave()
{
    "${@:2}"
    wait_for "the end after ${*:2}" ended "$game"
    local status=0
    wait "$game" || status=$?
    [ $status -eq "$1" ] || fail "watching ended with exit code $status, not $1: $(cat watching.log)"
}

watch "$recording"
wait_for "the title of what is watched" says "MyGame – 0:0? of ?:??, 1 ×"
xdotool key minus space
wait_for "a pause at half the speed" says "* of *, ½ ×, paused"
xdotool key plus plus plus Right Right
wait_for "two steps forward" says "MyGame – 0:1? of *, 4 ×, paused"
xdotool key Left Left Left
wait_for "steps back" says "MyGame – 0:00 of *, 4 ×, paused"
xdotool key plus plus space
wait_for "the end" says "MyGame – ?:?? of ?:??, 16 ×"
leave 0 xdotool key Escape
sed 's/^\(at [0-9]* check\) .*/\1 00000000/' "$recording" > wrong.mygame
watch wrong.mygame
wait_for "the sentence about other pictures" says "* – The pictures are not those recorded, from frame * on."
leave 4 kill "$game"
echo "at 5 sing" > faulty.mygame
watch faulty.mygame
wait_for "the fault in the title" says "MyGame – faulty.mygame:1: unknown directive 'sing'"
leave 2 xdotool key Escape
[ "$(echo played/recordings/*)" = "$(echo played/recordings/1999-12-{13..31}.mygame) $recording" ] ||
    fail "not the newest 20 recordings, or watching was recorded: $(ls played/recordings)"
[ ! -e log.txt ] || fail "watching writes where it was started"
echo "a game was played, left, resumed, ended and watched"
