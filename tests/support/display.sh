# For tests on a real display: a display server of their own, bounded waiting, pictures, the way into a game.
# To be sourced by bash. After `start_display` there is $work, a folder that goes with the test, and DISPLAY.
# shellcheck shell=bash disable=SC2034,SC2154

# Windows' titles are read in it.
export LC_ALL=C.UTF-8

started_in=$PWD
support=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
project=$(realpath "$support/../..")

# Copies of the program find each other by a name in the network's namespace. In one of its own a test meets
# neither a game that is being played nor another test, and what it mounts is its own. Root gets one in a changed root
# folder, too; others get it as root of their own.
if [ -z "${OWN_NAMESPACE:-}" ]; then
    for as_root in "" --map-root-user; do
        # shellcheck disable=SC2086 # no word or one
        if unshare --net --mount $as_root true 2> /dev/null; then
            OWN_NAMESPACE=1 exec unshare --net --mount $as_root "$0" "$@"
        fi
    done
fi

fail()
{
    echo "FAILED: $*" >&2
    if [ -n "${DISPLAY:-}" ] && import -silent -window root "$started_in/failed.png"; then
        echo "the screen then: $started_in/failed.png" >&2
    fi
    exit 1
}

# For a test that leaves more behind than processes of its own and $work.
before_end() { :; }

# A display of $SIZE or 1280 x 1024, $DEPTH or 24 bits deep, on which at the latter size the picture of 240 x 320 has room three times
# enlarged. It does not start afresh when its last program ends: that would cut off the next one.
start_display()
{
    work=$(mktemp -d)
    mkfifo "$work/number"
    Xvfb -displayfd 3 -screen 0 "${SIZE:-1280x1024}x${DEPTH:-24}" -noreset -nolisten tcp 3> "$work/number" 2> "$work/xvfb.log" &
    local server=$!
    trap 'before_end; kill $(jobs -p) 2> /dev/null || true; wait 2> /dev/null; rm -rf "$work"' EXIT
    read -r -t 20 number < "$work/number" || fail "no display server: $(cat "$work/xvfb.log")"
    kill -0 $server
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
    export XDG_STATE_HOME=$work/state
    # What SDL leaves to the end of the process in there is not ours to free.
    echo leak:libdbus-1 > "$work/known_leaks"
    export LSAN_OPTIONS=suppressions=$work/known_leaks:print_suppressions=0
}

# wait_for WHAT COMMAND...: until the command succeeds, a hundred tries at most.
wait_for()
{
    local what=$1
    shift
    for _ in $(seq 100); do
        "$@" && return
        sleep 0.1
    done
    fail "waited in vain: $what"
}

# Sets $window and its place, X Y.
find_window()
{
    window=$(xdotool search --onlyvisible --name '^MyGame$' | head -n 1)
    [ -n "$window" ] && eval "$(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left \([XY]\): */\1=/p')"
}

# Sets $manager. It announces itself before it looks after windows; what it starts comes when it does.
start_window_manager()
{
    openbox --startup "touch $work/managed" > /dev/null 2>&1 &
    manager=$!
    wait_for "the window manager" test -e "$work/managed"
}

# tap X Y: on a screen pixel, each of which is three times three of the window's.
tap() { xdotool mousemove $((X + 3 * $1 + 1)) $((Y + 3 * $2 + 1)) click 1; }

# picture FILE: what the window shows, at 240 x 320.
picture()
{
    import -silent -window root -crop "720x960+$X+$Y" +repage "$work/enlarged.png"
    convert "$work/enlarged.png" -filter point -resize 240x320! "$1"
}

# shows FILE [GEOMETRY]: whether the window shows a picture, or a part of it, to the pixel.
shows()
{
    picture "$work/now.png"
    [ "$(compare -metric AE -extract "${2:-240x320+0+0}" "$work/now.png" "$1" null: 2>&1)" = 0 ]
}

# moves [GEOMETRY]: whether the window, or a part of it, shows something else after a while.
moves()
{
    picture "$work/before.png"
    sleep 0.3
    ! shows "$work/before.png" "$@"
}

stands_still() { ! moves; }

# ended PROCESS
ended() { ! kill -0 "$1" 2> /dev/null; }

# Draws what stands still on the way into a game and back into $menus, on the virtual device.
draw_menus()
{
    menus=$work/menus
    (cd "$work" && "$programs/replay" "$support/menus.txt" --snapshots "$menus")
}

# install FOLDER: the game with its data in a folder of its own, which is where it writes. Nothing where it is there.
install()
{
    [ ! -e "$1/mygame" ] || return 0
    local file
    mkdir -p "$1"
    for file in "$programs"/*.png "$programs"/*.jpg "$programs"/*.wav; do
        ln -sf "$file" "$1"
    done
    cp "$programs/mygame" "$1"
}

# start FOLDER [COMMAND...]: the game that is installed there, after the command; sets $game when its window is there.
start()
{
    install "$1"
    (cd "$1" && "${@:2}" && exec "$1/mygame") &
    game=$!
    wait_for "the window" find_window
}

# By the menu button, which no other screen has, and the satellite: asteroids turn in a paused game, too.
in_game() { shows "$menus/game.png" 30x30+210+290 && moves 60x20+90+290; }

# make_read_only FOLDER: also for root.
make_read_only()
{
    mount --bind "$1" "$1" && mount -o remount,bind,ro "$1"
}

# start_game [MENU Y]: from the main menu, as drawn in $menus, with "New game" there, into a time attack: there is
# always something that moves.
start_game()
{
    wait_for "the main menu" shows "$menus/${1:-top}.png"
    tap 120 "${2:-130}"
    wait_for "the modes after a tap on \"New game\"" shows "$menus/modes.png"
    tap 120 185
    wait_for "the difficulties after a tap on \"Time attack\"" shows "$menus/difficulties.png"
    tap 120 125
    wait_for "a moving game after a tap on \"Easy\"" in_game
}
