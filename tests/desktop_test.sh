#!/bin/bash
# Plays with desktop_demo on an X server of its own, with real pointer and key events: first without a window
# manager, then with one. Every check that fails says so in one line, and ends the test.
#
# usage: tests/desktop_test.sh [folder with the programs, build/release/bin by default]
set -u

# shellcheck source=tests/desktop_session.sh
. "$(dirname "$0")/desktop_session.sh"

# Reads the program's next lines and compares them with the arguments, so that a line too many is seen too.
expect() { # what, line...
    local what=$1 line
    shift
    for wanted; do
        read -r -t $patienceSeconds line <&4 || line="nothing"
        [ "$line" = "$wanted" ] || fail "$what: expected '$wanted', got '$line'"
    done
}

equal() { # what, expected, actual
    [ "$2" = "$3" ] || fail "$1: expected $2, got $3"
}

# Runs a command until it succeeds.
await() { # what, command...
    local what=$1 tries
    shift
    for ((tries = 0; tries < patienceSeconds * 10; ++tries)); do
        "$@" && return
        sleep 0.1
    done
    fail "$what did not happen"
}

# Colours of the display at places written "x,y", joined by spaces.
colours() {
    local places
    places=$(printf '%%[hex:p{%s}] ' "$@")
    import -silent -window root "$folder/shot.png" && convert "$folder/shot.png" -format "$places" info:
}

showsColours() { # expected, place...
    local wanted=$1
    shift
    actual=$(colours "$@")
    [ "$actual" = "$wanted " ]
}

expectColours() { # what, expected, place...
    local what=$1
    shift
    await "$what (expected $1 at ${*:2})" showsColours "$@"
}

hasFocus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$window" ]; }
hasGeometry() { xdotool getwindowgeometry --shell "$window" | tr '\n' ' ' | grep -q "$1"; }
hasNoFocus() { ! hasFocus; }
hasWindowManager() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 0x; }

click() { xdotool mousemove "$1" "$2" click 1; }

# A key that certainly arrives, so that everything before it has been dealt with.
expectNothingElse() {
    xdotool key Left
    expect "$1" "press 25" "release 25"
}

testPicture() {
    # At three times size the screen begins at 280, 32; bars are black, colours exact, edges sharp.
    startDemo
    expectColours "first picture" "000000 FFFFFF FFFFFF 10204A" 279,500 280,32 999,991 283,35
    expectColours "colours at three times size" "FFFFFF 00FF00 FF0000 0000FF FF00FF 000000" \
        310,62 424,62 538,62 652,62 766,62 880,62
    expectColours "edges of a square" "10204A FFFFFF FFFFFF 10204A" 309,100 310,100 399,100 400,100

    xdotool windowsize --sync "$window" 500 700
    expectColours "colours at twice the size" "000000 FFFFFF 00FF00 10204A" 289,400 290,62 398,82 292,64
    click 290 62
    expect "click at twice the size" "down 0 0" "up 0 0"
    xdotool windowsize --sync "$window" 720 960
    expectColours "picture after growing again" "FFFFFF" 999,991
}

testStylus() {
    click 280 32
    click 999 991
    click 282 34
    click 283 35
    expect "clicks at the picture's corners" "down 0 0" "up 0 0" "down 239 319" "up 239 319" \
        "down 0 0" "up 0 0" "down 1 1" "up 1 1"

    xdotool mousemove 580 500 mousedown 1 mousemove 640 500 mousemove 1279 1023 mousemove 0 0 mouseup 1
    expect "drag out of the window" "down 100 156" "move 120 156" "move 239 319" "move 0 0" "up 0 0"

    xdotool mousemove 580 500 mousedown 3 mouseup 3 mousedown 1
    expect "press before the keyboard goes" "down 100 156"
    xdotool windowfocus $noWindow
    expect "release when the keyboard goes" "up 100 156"
    xdotool mouseup 1
    click 600 600
    xdotool windowfocus "$window"
    expectNothingElse "clicks in the background"
}

testButtons() {
    xdotool key Right Up Down space BackSpace
    expect "buttons" "press 27" "release 27" "press 26" "release 26" "press 28" "release 28" \
        "press 20" "release 20" "press 08" "release 08"
    xdotool key a Tab Print F5 shift XF86AudioMute ctrl+space super+Left alt+Escape ctrl+F11
    expectNothingElse "other keys and chords"

    xdotool keydown Return sleep 1 keyup Return
    expect "a held key" "press 0D" "release 0D"
    xdotool keydown Return
    expect "press before the keyboard goes" "press 0D"
    xdotool windowfocus $noWindow keyup Return windowfocus "$window"
    expectNothingElse "release in another window"
}

testFullScreen() { # chord, geometry in full screen, geometry of the window
    local place
    xdotool key "$1"
    await "full screen by $1" hasGeometry "WIDTH=1280 HEIGHT=1024"
    expectColours "picture in full screen" "000000 FFFFFF 000000 000000" 279,500 280,32 0,0 1279,1023
    click 279 500
    click 280 32
    expect "clicks in full screen and its bars" "down 0 0" "up 0 0"
    xdotool key "$1"
    await "window size after full screen by $1" hasGeometry "WIDTH=720 HEIGHT=960"
    await "keyboard after full screen" hasFocus
    expectNothingElse "keys that belong to full screen"
}

testBackground() {
    xdotool windowfocus $noWindow windowunmap "$window" windowmap "$window" windowfocus $noWindow
    expectColours "picture uncovered in the background" "FFFFFF 000000" 310,62 279,500
    local before start
    start=${EPOCHREALTIME/./}
    before=$(wakeUps)
    sleep 2
    local woken=$(($(wakeUps) - before)) most=$(((${EPOCHREALTIME/./} - start) / 100000 + 2))
    [ $woken -le $most ] || fail "in the background: $woken wake-ups, at most $most expected"
    xdotool windowfocus "$window"
    expectNothingElse "return to the foreground"
}

testOldKey() {
    stopDemo
    xdotool keydown Return
    startDemo
    sleep 1.5 # The server's repetitions of the key begin after 0.66 s.
    xdotool keyup Return
    expectNothingElse "a key that was down at the start"
    xdotool key Return
    expect "the same key later" "press 0D" "release 0D"
}

testEnds() {
    local signal # SIGINT is ignored in what a script starts in the background, until the program catches it.
    for signal in INT TERM; do
        kill -$signal $demo
        awaitEnd "after SIG$signal"
        equal "exit code after SIG$signal" 0 "$result"
        equal "log's last line after SIG$signal" "Main loop stopped" "$(tail -1 log.txt)"
        startDemo
    done
    xdotool windowfocus $noWindow
    kill -INT $demo
    awaitEnd "after SIGINT in the background"
    equal "exit code after SIGINT in the background" 0 "$result"

    startDemo
    kill -KILL $demo
    wait $demo 2>/dev/null
    exec 4<&-
    startDemo
}

# In a folder that an ordinary path could not name.
testPaths() {
    local place
    place="$folder/$(printf 'a b \xc3\xbc \xff')/$(printf 'x%.0s' {1..200})/$(printf 'y%.0s' {1..200})"
    mkdir -p "$place"
    cp -r "$programs/desktop_demo" "$programs/demo" "$place"
    stopDemo
    startDemo "$place/desktop_demo"
    equal "messages when started from a strange folder" "" "$(cat errors)"
}

# The device starts with silence, which 8-bit samples write as 128.
withoutSilence() { tr -d '\200' | head -c 2000; }
wasPlayed() { cmp -s <(withoutSilence <played) <(tail -c +45 "$programs/demo/sound.wav" | withoutSilence); }

# The driver writes what is played to a file.
testSound() {
    stopDemo
    SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$folder/played" startDemo
    xdotool key BackSpace
    expect "sound key" "press 08" "release 08"
    await "the sound" wasPlayed
    stopDemo
    SDL_AUDIODRIVER=none startDemo
    xdotool key BackSpace
    expect "sound key without a sound device" "press 08" "release 08"
    xdotool keydown Escape
    expect "Escape" "press 1B"
    awaitEnd "after Escape"
    xdotool keyup Escape
    equal "exit code without a sound device" 0 "$result"
    equal "messages without a sound device" "" "$(cat errors)"
}

testWindowManager() {
    openbox >/dev/null 2>&1 &
    await "the window manager" hasWindowManager
    startDemo
    await "keyboard at the start" hasFocus
    testFullScreen F11
    testFullScreen alt+Return

    xdotool windowminimize "$window"
    await "minimised window without keyboard" hasNoFocus
    "$programs/desktop_demo" >second 2>&1
    equal "exit code of a second copy" 0 $?
    equal "output of a second copy" "" "$(cat second)"
    await "keyboard for the first copy" hasFocus
    xdotool key alt+F4
    awaitEnd "after the close button"
    equal "exit code after the close button" 0 "$result"
}

needTools import convert openbox xprop
startServer
testPicture
testStylus
testButtons
testFullScreen F11
testFullScreen alt+Return
testBackground
testOldKey
testEnds
testPaths
testSound
testWindowManager
