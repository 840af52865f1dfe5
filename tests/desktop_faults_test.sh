#!/bin/bash
# Plays `mygame` in a window while what it stands on fails: the display, the sound, the current folder, its own
# life, and its being the only copy. Whatever happens it must end with exit code 0 or go on.
#   desktop_faults_test.sh FOLDER_OF_THE_PROGRAMS
set -eu

programs=$(cd "$1" && pwd)
. "$(dirname "$0")/support/display.sh"

# ends_well WHAT [LOG]: the game ends by itself, and its log is whole.
ends_well()
{
    local result=0
    wait_for "the end, $1" ended "$game"
    wait "$game" || result=$?
    [ $result -eq 0 ] || fail "$1: exit code $result"
    [ -z "${2:-}" ] || [ "$(tail -n 1 "$2")" = "Main loop stopped" ] || fail "$1: the log: $(cat "$2")"
}

# Missiles that explode nearby, and soon.
make_noise()
{
    local x
    for x in 90 120 150; do
        tap $x 240
        sleep 0.3
    done
}

new_folder() { mktemp -d "$work/XXXXXX"; }

test_kill()
{
    local folder
    folder=$(new_folder)
    start "$folder"
    kill -KILL $game
    wait $game 2> /dev/null || true
    start "$folder"
    wait_for "a picture after the start that followed a violent end" shows "$menus/top.png"
    kill $game
    ends_well "after a start that followed a violent end" "$folder/log.txt"
}

# Folders into which no log can be written: nobody writes into the first, and the second is gone.
test_folders()
{
    local gone
    gone=$(new_folder)
    start /proc
    start_game
    kill $game
    ends_well "in a folder that cannot be written"

    (cd "$gone" && rmdir "$gone" && exec "$programs/mygame") &
    game=$!
    wait_for "the window in a folder that is gone" find_window
    wait_for "a picture in a folder that is gone" shows "$menus/top.png"
    kill $game
    ends_well "in a folder that is gone"
}

# Everything that the game loads is gone, its icon included.
test_no_data()
{
    local folder
    folder=$(new_folder)
    cp "$programs/mygame" "$folder"
    (cd "$folder" && exec ./mygame) &
    game=$!
    wait_for "the window without data" find_window
    make_noise
    kill $game
    ends_well "without data" "$folder/log.txt"
}

# has_open FILE: whether the game has it open.
has_open() { readlink /proc/$game/fd/* | grep -qxF "$1"; }

# The sound device is a file there: one that cannot be opened, and one that fails as soon as it gets a sound, as
# a device does that was pulled out.
test_sound()
{
    local folder device
    folder=$(new_folder)
    for device in "$work" /dev/full; do
        export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=$device
        start "$folder"
        start_game
        make_noise
        [ "$device" = "$work" ] || wait_for "the sound device to be opened" has_open "$device"
        make_noise
        moves || fail "nothing moves without a sound device"
        kill $game
        ends_well "with the sound device $device" "$folder/log.txt"
    done
    unset SDL_AUDIODRIVER SDL_DISKAUDIOFILE
}

one_is_left()
{
    local copy
    left=
    for copy in $copies; do
        ended "$copy" || left="$left $copy"
    done
    [ "$(wc -w <<< "$left")" -le 1 ]
}

test_copies()
{
    local round number copy
    for round in $(seq 10); do
        copies=
        for number in 1 2 3; do
            mkdir -p "$work/$round/$number"
            (cd "$work/$round/$number" && exec "$programs/mygame") &
            copies="$copies $!"
        done
        wait_for "all copies but one to end" one_is_left
        wait_for "the window of the copy that stays" find_window
        one_is_left
        [ -n "$left" ] || fail "round $round: no copy is left"
        game=${left# }
        for copy in $copies; do
            [ "$copy" = "$game" ] || wait "$copy" || fail "round $round: a copy too many: exit code $?"
        done
        [ "$(grep -l 'InitInit Failed' "$work/$round"/*/log.txt | wc -l)" -eq 2 ] ||
            fail "round $round: not two of the three copies say that they found another"
        kill "$game"
        ends_well "round $round of the copies"
    done
}

# A display of its own for what follows, and what the menus look like on it.
begin()
{
    start_display
    server=$(jobs -p | tail -n 1)
    draw_menus
}

# lose_display WHEN [LOG]
lose_display()
{
    kill -KILL "$server"
    wait "$server" 2> /dev/null || true
    ends_well "when the display went $1" "${@:2}"
    rm -rf "$work"
}

test_loss_of_display()
{
    mkdir "$work/game"
    start "$work/game"
    start_game
    lose_display "in a game" "$work/game/log.txt"

    begin
    mkdir "$work/game"
    start "$work/game"
    start_game
    xdotool windowfocus 1 # No window has the keyboard then.
    wait_for "the game to stand still" stands_still
    lose_display "in the background" "$work/game/log.txt"

    begin
    start_window_manager
    kill -STOP $manager # Now nobody shows the window, for which the game waits.
    (cd "$work" && exec "$programs/mygame") &
    game=$!
    wait_for "the window" xdotool search --name '^MyGame$' > /dev/null
    sleep 0.5
    lose_display "at the start"
    kill -KILL $manager
}

begin
test_kill
test_folders
test_no_data
test_sound
test_copies
test_loss_of_display
echo "the game went on or ended in order"
