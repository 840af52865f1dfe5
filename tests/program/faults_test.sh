#!/bin/bash
# Plays `mygame` in a window while what it stands on fails: the display, the sound, the disk, the current folder, its
# own life, and its being the only copy. Whatever happens it must end with exit code 0 or go on.
#   faults_test.sh FOLDER_OF_THE_PROGRAMS
set -eu

programs=$(cd "$1" && pwd)
# shellcheck source=tests/support/display.sh
. "$(dirname "$0")/../support/display.sh"

# ends_well WHAT: the game ends by itself, and its log is whole, unless $folder is none: there can be no log then.
ends_well()
{
    wait_for "the end, $1" ended "$game"
    wait "$game" || fail "$1: exit code $?"
    [ "$folder" = none ] || [ "$(tail -n 1 "$folder/log.txt")" = "Main loop stopped" ] || fail "$1: the log is cut short"
}

stop()
{
    kill "$game"
    ends_well "$1"
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

new_folder() { folder=$(mktemp -d "$work/XXXXXX"); }

# First without all that the game loads, its icon included; then as ever.
test_kill()
{
    new_folder
    cp "$programs/mygame" "$folder"
    start "$folder"
    make_noise
    kill -KILL $game
    wait $game 2> /dev/null || true
    rm "$folder/mygame"
    start "$folder"
    wait_for "a picture after the start that followed a violent end" shows "$menus/top.png"
    stop "after a start that followed a violent end"
}

leave_for_folder_that_goes()
{
    mkdir "$work/gone"
    cd "$work/gone"
    rmdir "$work/gone"
}

leave_for_folder_elsewhere() { cd "$elsewhere"; }

# put_in_place FOLDER: programs and data in folders of their own below it, as an installation has them.
put_in_place()
{
    mkdir -p "$1/games" "$1/share/games"
    new_folder
    install "$folder"
    mv "$folder/mygame" "$1/games"
    mv "$folder" "$1/share/games/mygame"
}

# Where the log goes: never to where the program was started.
test_folders()
{
    local installed elsewhere=$work/elsewhere home=$work/home
    local -x HOME=$home XDG_STATE_HOME=$XDG_STATE_HOME
    mkdir "$elsewhere" "$home"
    new_folder
    start "$folder" leave_for_folder_that_goes
    wait_for "a picture in a folder that is gone" shows "$menus/top.png"
    stop "in a folder that is gone"

    installed=$folder
    rm "$installed/log.txt"
    make_read_only "$installed"
    for folder in "$XDG_STATE_HOME/mygame" "$home/.local/state/mygame"; do
        [ "$folder" = "$XDG_STATE_HOME/mygame" ] || XDG_STATE_HOME=relative
        start "$installed" leave_for_folder_elsewhere
        stop "with the log in $folder"
        [ "$(stat -c %a "$folder")" = 700 ] || fail "others may read $folder"
    done

    put_in_place "$work/usr"
    "$work/usr/games/mygame" &
    game=$!
    wait_for "the window" find_window
    wait_for "a picture where it is installed" shows "$menus/top.png"
    folder=$home/.local/state/mygame
    stop "where it is installed"
    [ "$(ls "$work/usr/games")" = mygame ] || fail "it writes beside itself where it is installed"

    rm -r "$home/.local"
    make_read_only "$home"
    folder=none
    start "$installed" leave_for_folder_elsewhere
    start_game
    stop "in a home that cannot be written"
    unset HOME
    start "$installed" leave_for_folder_elsewhere
    stop "without a home"
    [ -z "$(find "$elsewhere" "$home" -type f)" ] || fail "files: $(find "$elsewhere" "$home" -type f)"
    umount "$installed" "$home"
}

# Lets no file grow beyond a kilobyte: writing more fails.
limit_files()
{
    trap '' XFSZ
    ulimit -f 1
}

is_full() { [ "$(stat -c %s "$1")" -eq 1024 ]; }

# The sound device is a file there: one that cannot be opened, and one that fails soon after it got a sound, as a
# device does that was pulled out.
test_sound()
{
    local device limit
    new_folder
    for device in "$work" "$work/played"; do
        [ "$device" = "$work" ] && limit= || limit=limit_files
        SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=$device start "$folder" $limit
        start_game
        make_noise
        [ -z "$limit" ] || wait_for "the sound device to fail" is_full "$device"
        make_noise
        moves || fail "nothing moves without a sound device"
        stop "with the sound device $device"
    done
}

# A recording that finds no more room ends with a whole line, and plays.
test_full_disk()
{
    local recording
    new_folder
    start "$folder" limit_files
    start_game
    for _ in 1 2 3 4 5; do make_noise; done
    moves || fail "nothing moves with a full disk"
    stop "with a full disk"
    recording=$(echo "$folder"/recordings/*)
    ! grep quit "$recording" || fail "there is room for all of the recording"
    [ -z "$(tail -c 1 "$recording")" ] || fail "the recording on a full disk ends with: $(tail -n 1 "$recording")"
    "$programs/replay" "$recording" || fail "the recording on a full disk, played, shows something else"
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
            install "$work/copies/$number"
            rm -f "$work/copies/$number/log.txt"
            "$work/copies/$number/mygame" &
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
        [ "$(grep -l 'InitInit Failed' "$work/copies"/*/log.txt | wc -l)" -eq 2 ] ||
            fail "round $round: not two of the three copies say that they found another"
        folder=$(dirname "$(grep -L 'InitInit Failed' "$work/copies"/*/log.txt)")
        stop "round $round of the copies"
    done
}

# A display of its own for what follows, and what the menus look like on it.
begin()
{
    start_display
    server=$(jobs -p | tail -n 1)
    draw_menus
    new_folder
}

lose_display()
{
    kill -KILL "$server"
    wait "$server" 2> /dev/null || true
    ends_well "when the display went $1"
    rm -rf "$work"
}

test_loss_of_display()
{
    start "$folder"
    start_game
    lose_display "in a game"

    begin
    start "$folder"
    start_game
    xdotool windowfocus 1 # No window has the keyboard then.
    wait_for "the game to stand still" stands_still
    lose_display "in the background"

    begin
    start_window_manager
    kill -STOP $manager # Now nobody shows the window, for which the game waits.
    install "$folder"
    "$folder/mygame" &
    game=$!
    folder=none # Its log is cut short: there is no main loop yet that could stop.
    wait_for "the window" xdotool search --name '^MyGame$' > /dev/null
    sleep 0.5
    lose_display "at the start"
    kill -KILL $manager
}

begin
test_kill
test_folders
test_sound
test_full_disk
test_copies
test_loss_of_display
echo "the game went on or ended in order"
