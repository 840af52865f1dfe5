#!/bin/bash
# Plays the game for Windows under wine, by real clicks and keys, from folders with all kinds of names, and compares what it
# shows with what the program shows here on the virtual device.
#   windows_test.sh FOLDER_OF_THE_PROGRAMS_HERE ARCHIVE
set -eu

programs=$(realpath "$1")
archive=$(realpath "$2")
# shellcheck source=tests/support/display.sh
. "$(dirname "$0")/../support/display.sh"
cd "$project"
# shellcheck source=scripts/wine.sh
. scripts/wine.sh

# Its server keeps what it knows of a display.
before_end() { wineserver -k || true; }

expected_log=$'InitOpening display...\r\nDisplay properties:\r\nScreen Width:240\r\nScreen Height: 320\r\nBPP: 16\r\n'
expected_log+=$'Format: 128\r\nStandard display\r\nMain loop stopped'

# start_windows FOLDER: sets $game when there is a window, and how long that took.
start_windows()
{
    local begin=${EPOCHREALTIME/./}
    wine "$1/mygame.exe" > "$work/output" 2>&1 &
    game=$!
    wait_for "the window" find_window
    window_ms=$(((${EPOCHREALTIME/./} - begin) / 1000))
    wait_for "the main menu" shows "$menus/top.png"
}

# ends WHAT LOG: with its log whole.
ends()
{
    wait_for "the end, $1" ended "$game"
    wait "$game" || fail "$1: exit code $?"
    [ "$(cat "$2")" = "$expected_log" ] || fail "$1: the log: $(cat "$2")"
    rm "$2"
}

in_front() { [ "$(xdotool getwindowfocus 2> /dev/null)" = "$window" ]; }
not_in_front() { ! in_front; }
asks() { [ "$(xdotool getwindowname "$window")" = "Press Escape again to leave" ]; }

# Whether the main menu is shown in full screen. Sets the picture's place there.
covers_display()
{
    find_window && [ "$X $Y" = "0 0" ] && X=280 Y=32 && shows "$menus/top.png"
}
is_window() { find_window && [ "$X $Y" != "0 0" ]; }

# to_full_screen KEY: from the main menu in a window. Now and then wine loses the window's new size to an answer of the window
# manager that comes late; then once more.
to_full_screen()
{
    for _ in $(seq 5); do
        xdotool key "$1"
        for _ in $(seq 30); do
            ! covers_display || return 0
            sleep 0.1
        done
        xdotool key "$1"
        wait_for "a window again" is_window
    done
    fail "waited in vain: full screen after $1"
}

# Hundredths of a second that the game has used.
used() { echo $(($(cut -d ' ' -f 14,15 "/proc/$game/stat" | tr ' ' +))); }

leave_game()
{
    tap 225 305
    wait_for "the game to stand still under its menu" stands_still
    keep game-menu
    tap 120 175
    wait_for "the main menu with \"Resume\"" shows "$menus/resumable.png"
}

# keep NAME: the screen, for somebody to look at.
keep() { import -silent -window root "$screenshots/$1.png"; }

# Full screen, and play there and in the window.
test_play()
{
    start_windows "$folder"
    keep menu
    to_full_screen F11
    xdotool key Escape
    wait_for "the main menu in a window" is_window
    to_full_screen alt+Return
    start_game
    local before
    before=$(used)
    for x in 60 120 180; do
        tap $x 120
        sleep 1
    done
    echo "window after $window_ms ms; $((($(used) - before) / 3)) % of a core in play"
    keep full-screen
    xdotool key alt+Return
    wait_for "a window again" is_window
    leave_game
    tap 120 205
    ends "after \"Exit\"" "$folder/log.txt"
}

in_shop() { shows "$project/tests/scenes/shop_propulsion.png" 240x40+0+280; }

# A whole wave, which the Earth outlives on easy without help, and the shop behind it.
test_shop()
{
    start_windows "$folder"
    tap 120 130
    wait_for "the modes" shows "$menus/modes.png"
    tap 120 130
    wait_for "the difficulties" shows "$menus/difficulties.png"
    tap 120 125
    for _ in $(seq 100); do
        tap $((40 + RANDOM % 160)) $((100 + RANDOM % 100))
        sleep 0.2
        ! in_shop || break
    done
    wait_for "the shop" in_shop
    tap 60 40
    tap 60 290
    sleep 0.5
    keep shop
    tap 170 290
    wait_for "the next wave" moves 60x20+90+290
    wmctrl -c MyGame
    ends "when the window was closed in a game" "$folder/log.txt"
}

# Beside other systems' windows wine raises none, but it brings back what was put away.
test_second_start()
{
    start_windows "$folder"
    xdotool mousemove $((X + 678)) $((Y - 11)) click 1
    wait_for "the window to be put away" not_in_front
    timeout 20 wine "$folder/mygame.exe" > /dev/null 2>&1 || fail "the second copy ended with exit code $?"
    wait_for "the running copy in front" in_front
    wait_for "the main menu again" shows "$menus/top.png"
    xdotool mousemove $((X + 710)) $((Y - 11)) click 1
    ends "after a click on the close button" "$folder/log.txt"
}

test_ways_to_end()
{
    start_windows "$folder"
    xdotool key Escape
    wait_for "the question for a second press" asks
    keep asks
    xdotool key Escape
    ends "after Escape was pressed twice" "$folder/log.txt"

    start_windows "$folder"
    wine wineboot --end-session > /dev/null 2>&1 &
    # The end of a session under wine waits for nobody, so the log may be cut short.
    wait_for "the end of the session" ended "$game"
    wait "$game" || fail "at the end of the session: exit code $?"
    wait $!
}

# Nothing can be written beside the program there, so the log goes to the user.
test_read_only_folder()
{
    local name="only read"
    cp -r "$folder" "$work/$name"
    make_read_only "$work/$name"
    start_windows "$work/$name"
    start_game
    leave_game
    tap 120 205
    ends "in a read-only folder" "$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local/MyGame)/log.txt"
    umount "$work/$name"
}

start_display
draw_menus
screenshots=$project/build/windows/screenshots
rm -rf "$screenshots"
mkdir -p "$screenshots"
before_end
start_window_manager
# The first time that takes a while, and what it starts knows only the windows' surroundings of then.
wine wineboot --init > /dev/null 2>&1
wineserver -w

for name in "Αστέρια και βράχοι" "Падающие камни" "🚀 ☄ 🌍"; do
    mkdir "$work/$name"
    folder="$work/$name/mygame-windows"
    unzip -q "$archive" -d "$work/$name"
    case $name in
    Α*) test_play ;;
    П*) test_shop ;;
    *)
        test_second_start
        test_ways_to_end
        ;;
    esac
done
test_read_only_folder
echo "the game for Windows was played from folders of all kinds, and ended in order"
