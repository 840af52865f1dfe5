#!/bin/bash
# Plays with desktop_demo on an X server of its own, with real pointer and key events: first without a window
# manager, then with one. Every check that fails says so in one line, and ends the test.
#   desktop_test.sh [FOLDER_OF_THE_PROGRAMS, build/release/bin by default]
set -eu

# shellcheck source=tests/support/desktop_demo.sh
. "$(dirname "$0")/support/desktop_demo.sh"

# expect WHAT LINE...: the program's next lines, so that a line too many is seen too.
expect()
{
    local what=$1 line
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
has_no_focus() { ! has_focus; }

click() { xdotool mousemove "$1" "$2" click 1; }

# expect_nothing_else WHAT: by a key that certainly arrives, after everything before it has been dealt with.
expect_nothing_else()
{
    xdotool key Left
    expect "$1" "press 25" "release 25"
}

test_picture()
{
    # At three times size the screen begins at 280, 32; bars are black, colours exact, edges sharp.
    start_demo
    expect_colours "first picture" "000000 FFFFFF FFFFFF 10204A" 279,500 280,32 999,991 283,35
    expect_colours "colours at three times size" "FFFFFF 00FF00 FF0000 0000FF FF00FF 000000" \
        310,62 424,62 538,62 652,62 766,62 880,62
    expect_colours "edges of a square" "10204A FFFFFF FFFFFF 10204A" 309,100 310,100 399,100 400,100

    xdotool windowsize --sync "$window" 500 700
    expect_colours "colours at twice the size" "000000 FFFFFF 00FF00 10204A" 289,400 290,62 398,82 292,64
    click 290 62
    expect "click at twice the size" "down 0 0" "up 0 0"
    xdotool windowsize --sync "$window" 720 960
    expect_colours "picture after growing again" "FFFFFF" 999,991
}

test_stylus()
{
    click 280 32
    click 999 991
    click 282 34
    click 283 35
    expect "clicks at the picture's corners" "down 0 0" "up 0 0" "down 239 319" "up 239 319" \
        "down 0 0" "up 0 0" "down 1 1" "up 1 1"

    xdotool mousemove 580 500 click 3 mousedown 1 mousemove 640 500 mousemove 1279 1023 mousemove 0 0 mouseup 1
    expect "drag out of the window" "down 100 156" "move 120 156" "move 239 319" "move 0 0" "up 0 0"
}

test_buttons()
{
    xdotool key Num_Lock Caps_Lock Right Up Down space BackSpace Num_Lock Caps_Lock
    expect "buttons" "press 27" "release 27" "press 26" "release 26" "press 28" "release 28" \
        "press 20" "release 20" "press 08" "release 08"
    xdotool key a Tab Print F5 shift XF86AudioMute ctrl+space super+Left alt+Escape ctrl+F11
    expect_nothing_else "other keys and chords"

    xdotool keydown Return sleep 1 keyup Return
    expect "a held key" "press 0D" "release 0D"
    xdotool keydown Return
    expect "press before the keyboard goes" "press 0D"
    xdotool windowfocus $no_window keyup Return windowfocus "$window"
    expect_nothing_else "release in another window"
    xdotool windowfocus $no_window keydown space windowfocus "$window" keyup space
    expect_nothing_else "a key that came along from another window"
    xdotool key space
    expect "the same key afterwards" "press 20" "release 20"
}

# test_full_screen CHORD
test_full_screen()
{
    xdotool key "$1"
    wait_for "full screen by $1" has_geometry "WIDTH=1280 HEIGHT=1024"
    expect_colours "picture in full screen" "000000 FFFFFF 000000 000000" 279,500 280,32 0,0 1279,1023
    click 279 500
    click 280 32
    expect "clicks in full screen and its bars" "down 0 0" "up 0 0"
    xdotool key "$1"
    wait_for "window size after full screen by $1" has_geometry "WIDTH=720 HEIGHT=960"
    wait_for "keyboard after full screen" has_focus
    expect_nothing_else "keys that belong to full screen"
}

test_background()
{
    xdotool windowfocus $no_window windowunmap "$window" windowmap "$window" windowfocus $no_window
    expect_colours "picture uncovered in the background" "FFFFFF 000000" 310,62 279,500
    xdotool windowfocus "$window"
    expect_nothing_else "return to the foreground"
}

test_old_key()
{
    stop_demo
    xdotool keydown Return
    start_demo
    sleep 1.5 # The server's repetitions of the key begin after 0.66 s.
    xdotool keyup Return
    expect_nothing_else "a key that was down at the start"
    xdotool key Return
    expect "the same key later" "press 0D" "release 0D"
}

test_ends()
{
    stop_demo INT # Ignored in what a script starts in the background, until the program catches it.
    start_demo
    xdotool windowfocus $no_window
    stop_demo INT
}

# In a folder that an ordinary path could not name.
test_paths()
{
    local place
    place="$work/$(printf 'a b \xc3\xbc \xff')/$(printf 'x%.0s' {1..200})/$(printf 'y%.0s' {1..200})"
    mkdir -p "$place"
    cp -r "$programs/desktop_demo" "$programs/demo" "$place"
    start_demo "$place/desktop_demo"
    [ ! -s "$work/errors" ] || fail "started from a strange folder: $(cat "$work/errors")"
}

# Silence is 128 in 8-bit samples; the device starts with some.
without_silence() { tr -d '\200' | head -c 2000; }
was_played() { [ -e played ] && cmp -s <(without_silence < played) <(tail -c +45 "$programs/demo/sound.wav" | without_silence); }

# The driver writes what is played to a file.
test_sound()
{
    stop_demo
    SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/played" start_demo
    xdotool key BackSpace
    expect "sound key" "press 08" "release 08"
    wait_for "the sound" was_played
    xdotool keydown Escape
    expect "Escape" "press 1B"
    await_end "after Escape"
    xdotool keyup Escape
}

test_window_manager()
{
    start_window_manager
    start_demo
    wait_for "keyboard at the start" has_focus
    test_full_screen F11
    test_full_screen alt+Return

    xdotool windowminimize "$window"
    wait_for "minimised window without keyboard" has_no_focus
    timeout $patience "$programs/desktop_demo" || fail "a second copy ended with exit code $?"
    wait_for "keyboard for the first copy" has_focus
    xdotool key alt+F4
    await_end "after the close button"
}

# Displays of fewer and of more colours than the screen's.
for depth in 16 30; do
    (DEPTH=$depth start_display; cd "$work"; test_picture)
done
start_display
cd "$work"
test_picture
test_stylus
test_buttons
test_full_screen F11
test_full_screen alt+Return
test_background
test_old_key
test_ends
test_paths
test_sound
test_window_manager
