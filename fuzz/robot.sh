#!/bin/bash
# A player made of real pointer and key events plays games in a window while the machine gets in the way: the window
# changes its size, loses the keyboard, is put away; the process is stopped; the display changes its rate; the other core is
# busy. Every recording must show the same when it is played anew, here and on each host whose programs are built.
# The recordings stay in build/robot.
set -eu

project=$(dirname "$(dirname "$(realpath "$0")")")
cd "$project"
. scripts/packages.sh
take_arguments "HOST GAMES [KILLED]" "Plays so many games of all modes by real events, with what a machine does to a program
meanwhile, then some that are killed half way, and plays their recordings anew. HOST is linux, or windows for the game
for Windows under wine." "$@"
host=${1:-} games=${2:-} killed=${3:-0}
case $host in linux | windows) ;; *) bad_use "'$host' is no host" ;; esac
case $games$killed in "" | *[!0-9]*) bad_use "'$games' and '$killed' are not both numbers of games" ;; esac
programs=$project/build/release/bin
# shellcheck source=tests/support/display.sh
. tests/support/display.sh
# shellcheck source=scripts/wine.sh
. scripts/wine.sh
kept=$project/build/robot
mkdir -p "$kept"

chance() { [ $((RANDOM % 100)) -lt "$1" ]; }
nap() { sleep "$(awk "BEGIN { print $(($1 + RANDOM % ($2 - $1))) / 1000 }")"; }

before_end()
{
    [ "$host" != windows ] || wineserver -k || true
}

start_host()
{
    if [ "$host" = windows ]; then
        folder=$work/mygame-windows
        [ -d "$folder" ] || unzip -q build/windows/mygame-windows.zip -d "$work"
        wine "$folder/mygame.exe" > /dev/null 2>&1 &
        game=$!
        wait_for "the window" find_window
    else
        folder=$work/played
        start "$folder"
    fi
}

# Somewhere in the window, whatever its size; mostly where rocks are.
tap_anywhere()
{
    eval "$(xdotool getwindowgeometry --shell "$window" 2> /dev/null | grep -E '^(X|Y|WIDTH|HEIGHT)=')" || return 0
    local y=$((HEIGHT * (15 + RANDOM % 60) / 100))
    ! chance 8 || y=$((HEIGHT * (90 + RANDOM % 10) / 100)) # The buttons at the bottom.
    xdotool mousemove $((X + WIDTH * (5 + RANDOM % 90) / 100)) $((Y + y)) "$@"
}

to_sleep()
{
    kill -STOP "$game"
    nap 100 3000
    kill -CONT "$game"
}

change_rate()
{
    local mode=fast
    ! xrandr | grep -q 'fast .*\*' || mode=1280x1024
    xrandr --output screen --mode $mode
}

lose_keyboard()
{
    xdotool windowfocus 1 # No window has it then.
    nap 100 2500
    xdotool windowfocus "$window" || true
}

put_away()
{
    xdotool windowminimize "$window"
    nap 200 1500
    xdotool windowmap "$window" windowfocus "$window" || true
}

do_something()
{
    case $((RANDOM % 40)) in
    0) xdotool windowsize "$window" $((150 + RANDOM % 900)) $((200 + RANDOM % 800)) ;;
    1) xdotool key F11 ;;
    2) lose_keyboard ;;
    3) put_away ;;
    4) to_sleep ;;
    5) change_rate ;;
    6) tap_anywhere mousedown 1 mousemove_relative 40 9 mousemove_relative -- -9 60 mouseup 1 ;;
    7) xdotool key space Tab a Escape ;;
    8) tap_anywhere mousedown 1 && lose_keyboard && xdotool mouseup 1 ;;
    *) tap_anywhere click 1 ;;
    esac
}

# begin_game NUMBER: of a mode and a difficulty that belong to the number.
begin_game()
{
    local row
    wait_for "the main menu" shows "$menus/top.png"
    for row in 0 $(($1 % 3)) $(($1 / 3 % 3)); do
        tap 120 $((130 + 30 * row))
        sleep 0.7
    done
}

end_by()
{
    case $1 in
    KILL) kill -KILL "$game" ;;
    CLOSE) wmctrl -i -c "$window" ;;
    TERM) kill "$game" ;;
    ESCAPE)
        xdotool windowfocus "$window" || true
        xdotool key Escape # from full screen
        sleep 2.1
        xdotool key Escape Escape
        sleep 1
        ended "$game" || wmctrl -i -c "$window" # A message takes no keys.
        ;;
    esac
}

# plays_the_same RECORDING: on every host that is there.
plays_the_same()
{
    "$programs/replay" "$1" || fail "$1 shows something else"
    [ ! -e build/node/replay.js ] || node --no-experimental-fetch build/node/replay.js "$1" --data data ||
        fail "$1 shows something else under node"
    [ ! -e "$work/mygame-windows/replay.exe" ] || wine "$work/mygame-windows/replay.exe" "$1" ||
        fail "$1 shows something else under wine"
}

# play NUMBER END
play()
{
    local recording name load='' end=$((SECONDS + 20 + RANDOM % 15))
    start_host
    if [ $(($1 % 2)) -eq 1 ]; then
        (while :; do :; done) &
        load=$!
    fi
    begin_game "$1"
    while [ $SECONDS -lt $end ] && ! ended "$game"; do
        do_something 2> /dev/null || true
        nap 50 500
    done
    ended "$game" || end_by "$2" || true
    wait_for "the end of game $1" ended "$game"
    [ -z "$load" ] || kill $load
    wait 2> /dev/null "$game" $load || true
    [ "$host" != windows ] || wineserver -w
    name="$host-$1-$2.mygame"
    recording=$(find "$folder/recordings" -name '*.mygame')
    [ -n "$recording" ] || fail "game $1 left no recording"
    mv "$recording" "$kept/$name"
    [ "$(grep -c ' check ' "$kept/$name")" -ge 5 ] || fail "$name holds too few checks"
    plays_the_same "$kept/$name"
    echo "$name: $(tail -n 1 "$kept/$name"), $(grep -c ' check ' "$kept/$name") checks," \
        "$(grep -c ' frame-cost ' "$kept/$name") lengths, $(grep -c ' refresh ' "$kept/$name") rates, the same"
}

start_display
draw_menus
start_window_manager
xrandr --newmode fast 188.7437 1280 1280 1280 1280 1024 1024 1024 1024
xrandr --addmode screen fast
[ ! -e build/windows/mygame-windows.zip ] || unzip -q build/windows/mygame-windows.zip -d "$work"
if [ -d "$work/mygame-windows" ]; then
    before_end
    wine wineboot --init > /dev/null 2>&1
    wineserver -w
fi
ends=(CLOSE ESCAPE TERM)
[ "$host" = linux ] || ends=(CLOSE ESCAPE CLOSE)
for ((i = 0; i < games; ++i)); do
    play $i "${ends[i % 3]}"
done
for ((i = 0; i < killed; ++i)); do
    play $((games + i)) KILL
done
echo "all recordings show what was played"
