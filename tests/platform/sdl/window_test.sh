#!/bin/bash
# Plays with device_demo on an X server of its own, with real pointer and key events: first without a window
# manager, then with one. Every check that fails says so in one line, and ends the test.
#   window_test.sh [FOLDER_OF_THE_PROGRAMS, build/release/bin by default]
set -eu

# shellcheck source=bench/device_demo.sh
. "$(dirname "$0")/../../../bench/device_demo.sh"

# expect WHAT LINE...: the program's next lines, so that a line too many is seen too.
expect()
{
    local what=$1 wanted line
    shift
    for wanted; do
        read -r -t $patience line <&4 || line="nothing"
        [ "$line" = "$wanted" ] || fail "$what: expected '$wanted', got '$line'"
    done
}

# colours PLACE...: what the display shows at places written "x,y", each followed by a space. Of 16 or 10 bits
# 8 are left, which are cut off, not rounded: a little more makes up for that.
colours()
{
    local places
    places=$(printf '%%[hex:p{%s}] ' "$@")
    import -silent -window root "$work/shot.png" &&
        convert "$work/shot.png" -evaluate add 64 -depth 8 -format "$places" info:
}

shows_colours() { [ "$(colours "${@:2}")" = "$1 " ]; }

# expect_colours WHAT COLOURS PLACE...
expect_colours() { wait_for "$1: $2 at ${*:3}" shows_colours "${@:2}"; }

has_focus() { [ "$(xdotool getwindowfocus 2> /dev/null)" = "$window" ]; }
has_geometry() { xdotool getwindowgeometry --shell "$window" | tr '\n' ' ' | grep -q "$1"; }
is_maximised() { xprop -id "$window" _NET_WM_STATE | grep -q MAXIMIZED_VERT && ! xprop -id "$window" _NET_WM_STATE | grep -q FULLSCREEN; }
has_no_focus() { ! has_focus; }

click() { xdotool mousemove "$1" "$2" click 1; }

# expect_nothing_else WHAT: by a tap on the lowest pixel at the left of the window at three times size, which
# certainly arrives, after everything before it has been dealt with.
expect_nothing_else()
{
    xdotool mousemove --window "$window" 1 958 click 1
    expect "$1" "down 0 319" "up 0 319"
}

has_title() { [ "$(xdotool getwindowname "$window")" = "$1" ]; }
asks() { has_title "Press Escape again to leave"; }
asks_no_more() { has_title MyGame; }

test_picture()
{
    # At three times size the screen begins at 280, 32; bars are black, colours exact, edges sharp.
    local uptime
    uptime=$(cut -d. -f1 /proc/uptime)
    start_demo
    [ $(((16#$tick - uptime * 1000) & 0x3FFFFFFF)) -lt 60000 ] || fail "the game's time began at $tick, not at the machine's"
    expect_colours "first picture" "000000 FFFFFF FFFFFF 10204A" 279,500 280,32 999,991 283,35
    expect_colours "colours at three times size" "FFFFFF 00FF00 FF0000 0000FF FF00FF 000000" \
        310,62 424,62 538,62 652,62 766,62 880,62
    expect_colours "edges of a square" "10204A FFFFFF FFFFFF 10204A" 309,100 310,100 399,100 400,100
}

# test_layout WHERE LEFT TOP WIDTH HEIGHT: the picture has that place in the window, as clicks on its corners say, too;
# a pixel has one colour where it is large enough, and beside the picture there is nothing.
test_layout()
{
    eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(X|Y)=')"
    local left=$((X + $2)) top=$((Y + $3)) right=$((X + $2 + $4 - 1)) bottom=$((Y + $3 + $5 - 1)) corner
    # The outermost pixels that have a place of their own: of a shrunk picture not the very first.
    local west=$((120 / $4)) east=$(((2 * $4 - 1) * 120 / $4)) north=$((160 / $5)) south=$(((2 * $5 - 1) * 160 / $5))
    local corners="$left,$top $right,$top $left,$bottom $right,$bottom"
    local wanted="FFFFFF" places="$((left + 25 * $4 / 240)),$((top + 25 * $5 / 320))"
    for corner in $corners; do
        click "${corner%,*}" "${corner#*,}"
    done
    expect "clicks at the corners, $1" "down $west $north" "up $west $north" "down $east $north" "up $east $north" \
        "down $west $south" "up $west $south" "down $east $south" "up $east $south"
    if [ "$4" -ge 240 ]; then
        wanted+=" FFFFFF FFFFFF FFFFFF FFFFFF" places+=" $corners"
    fi
    if [ "$4" -ge 480 ]; then
        wanted+=" 10204A" places+=" $((left + $4 * 3 / 480)),$((top + $5 * 3 / 640))"
    fi
    if [ "$2" -gt 0 ]; then
        wanted+=" 000000 000000" places+=" $((left - 1)),$top $((right + 1)),$bottom"
    fi
    # shellcheck disable=SC2086 # one word a place
    expect_colours "corners, pixels and bars, $1" "$wanted" $places
}

test_sizes()
{
    local size
    xprop -id "$window" WM_NORMAL_HINTS | grep -q "minimum size: 60 by 80" || fail "another smallest window"
    while read -r size; do
        # shellcheck disable=SC2086 # a word a number
        set -- $size
        xdotool windowsize --sync "$window" "$1" "$2"
        test_layout "in a window of $1 x $2" "${@:3}"
    done << SIZES
240 320 0 0 240 320
333 777 0 166 333 444
500 700 10 30 480 640
719 960 0 1 719 958
800 1000 40 20 720 960
141 140 18 0 105 140
SIZES
    xdotool windowsize --sync "$window" 720 960
}

test_stylus()
{
    xdotool mousemove 580 500 click 3 mousedown 1 mousemove 640 500 mousemove 1279 1023 mousemove 0 0 mouseup 1
    expect "drag out of the window" "down 100 156" "move 120 156" "move 239 319" "move 0 0" "up 0 0"
}

test_keys()
{
    xdotool key a Tab Print F5 shift XF86AudioMute space Return BackSpace Left ctrl+space super+Left
    for chord in alt+Escape ctrl+Escape shift+Escape super+Escape; do
        xdotool key $chord $chord
    done
    asks_no_more || fail "a chord with Escape counts"
    expect_nothing_else "keys that are nobody's"

    xdotool keydown Escape
    wait_for "the question in the title" asks
    wait_for "the title after two seconds" asks_no_more
    xdotool keyup Escape
    expect_nothing_else "a held Escape and its repetitions"
    xdotool key Escape
    wait_for "the question in the title" asks
    xdotool windowfocus $no_window
    wait_for "the title in the background" asks_no_more
    xdotool keydown Escape windowfocus "$window" keyup Escape
    wait_for "movement in the foreground" moves
    expect_nothing_else "an Escape that came along from another window"
    asks_no_more || fail "an Escape that came along from another window counts"
    xdotool key Escape Escape
    expect "Escape twice" "press 1B" "release 1B"
    await_end "after Escape twice"
    start_demo
}

# test_full_screen CHORD_THERE CHORD_BACK
test_full_screen()
{
    xdotool key "$1"
    wait_for "full screen by $1" has_geometry "WIDTH=1280 HEIGHT=1024"
    expect_colours "picture in full screen" "000000 FFFFFF 000000 000000" 279,500 280,32 0,0 1279,1023
    click 279 500
    click 280 32
    expect "clicks in full screen and its bars" "down 0 0" "up 0 0"
    xdotool key "$2"
    wait_for "window size after full screen by $1" has_geometry "WIDTH=720 HEIGHT=960"
    wait_for "keyboard after full screen" has_focus
    expect_nothing_else "keys that belong to full screen"
    asks_no_more || fail "the Escape that left full screen counts"
}

test_background()
{
    xdotool windowfocus $no_window windowunmap "$window" windowmap "$window" windowfocus $no_window
    expect_colours "picture uncovered in the background" "FFFFFF 000000" 310,62 279,500
    xdotool windowfocus "$window"
    wait_for "movement in the foreground" moves # SDL drops a click that comes with the keyboard.
    expect_nothing_else "return to the foreground"
}

test_old_key()
{
    stop_demo
    xdotool keydown Escape
    start_demo
    sleep 1.5 # The server's repetitions of the key begin after 0.66 s.
    asks_no_more || fail "a key that was down at the start counts"
    xdotool keyup Escape key Escape
    wait_for "the question after the same key later" asks
}

test_ends()
{
    stop_demo INT # Ignored in what a script starts in the background, until the program catches it.
    start_demo
    xdotool windowfocus $no_window
    stop_demo INT
}

# Silence is 128 in 8-bit samples; the device starts with some.
without_silence() { tr -d '\200' | head -c 2000; }
was_played() { [ -e played ] && cmp -s <(without_silence < played) <(tail -c +45 "$programs/demo/sound.wav" | without_silence); }

# The driver writes what is played to a file.
test_sound()
{
    SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/played" start_demo
    click 538 62
    expect "a tap for the sound" "down 86 10" "up 86 10"
    wait_for "the sound" was_played
    stop_demo HUP
}

test_window_manager()
{
    start_window_manager
    start_demo
    wait_for "keyboard at the start" has_focus
    test_full_screen F11 F11
    test_full_screen alt+Return Escape

    xdotool windowsize --sync "$window" 600 700
    wmctrl -i -r "$window" -b add,maximized_vert,maximized_horz
    wait_for "a maximised window" has_geometry "WIDTH=1280"
    xdotool key F11
    wait_for "full screen" has_geometry "WIDTH=1280 HEIGHT=1024"
    xdotool key F11
    wait_for "a maximised window after full screen" is_maximised

    xdotool windowminimize "$window"
    wait_for "minimised window without keyboard" has_no_focus
    timeout $patience "$programs/device_demo" || fail "a second copy ended with exit code $?"
    wait_for "keyboard for the first copy" has_focus
    xdotool key alt+F4
    await_end "after the close button"
}

# Displays of fewer and of more colours than the screen's.
for depth in 16 30; do
    (DEPTH=$depth start_display; cd "$work"; test_picture)
done
# Displays, the size of the first window on each, and where the picture lies in full screen.
for display in "240x400 224x298 0 40 240 320" "1024x600 414x552 287 0 450 600" "1920x1080 720x960 555 0 810 1080"; do
    (
        read -r size first layout <<< "$display"
        SIZE=$size start_display
        cd "$work"
        start_demo
        has_geometry "WIDTH=${first%x*} HEIGHT=${first#*x}" || fail "the first window on a display of $size"
        xdotool key F11
        wait_for "full screen of $size" has_geometry "WIDTH=${size%x*} HEIGHT=${size#*x}"
        # shellcheck disable=SC2086 # a word a number
        test_layout "in a full screen of $size" $layout
    )
done
start_display
cd "$work"
test_picture
test_sizes
test_stylus
test_keys
test_full_screen F11 F11
test_full_screen alt+Return Escape
test_background
test_old_key
test_ends
test_sound
test_window_manager
