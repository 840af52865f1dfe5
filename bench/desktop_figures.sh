#!/bin/bash
# Measures what the desktop device costs without a graphics processor: a 1280 x 1024 display on which the
# window is three times the handheld's screen. Prints five figures beside their goals; fails when one is missed.
#
# usage: bench/desktop_figures.sh [folder with the programs, build/release/bin by default]
set -eu

programs=$(realpath "${1:-$(dirname "$0")/../build/release/bin}")
seconds=10
starts=9
# Of the X server: no window has the keyboard.
noWindow=1

fail() {
    echo "desktop_figures.sh: $1" >&2
    exit 1
}

for tool in Xvfb xdotool; do
    command -v $tool >/dev/null || fail "$tool is missing: install the packages xvfb and xdotool"
done
[ -x "$programs/desktop_demo" ] || fail "$programs/desktop_demo is missing: build the project first"

folder=$(mktemp -d)
cd "$folder"
cleanUp() {
    kill "${demo:-}" "${server:-}" 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap cleanUp EXIT
mkfifo output display

Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>display 2>/dev/null &
server=$!
read -r number <display
export DISPLAY=:$number

# Starts the program and sets pictureMs, the time until its first picture was shown.
startDemo() {
    local begin=${EPOCHREALTIME/./}
    "$programs/desktop_demo" >output &
    demo=$!
    exec 4<output
    read -r -t 20 line <&4 || fail "no first picture within 20 s"
    pictureMs=$(((${EPOCHREALTIME/./} - begin) / 1000))
}

stopDemo() {
    kill "$demo"
    wait "$demo"
    exec 4<&-
}

cpuNanoseconds() { cat /proc/"$demo"/task/*/schedstat | awk '{ sum += $1 } END { printf "%.0f\n", sum }'; }
wakeUps() { cat /proc/"$demo"/task/*/status | awk '/^voluntary_ctxt/ { sum += $2 } END { print sum }'; }

# The growth of a counter a second, over the time that is measured.
perSecond() {
    local before
    before=$($1)
    sleep "$seconds"
    awk "BEGIN { print ($($1) - $before) / $seconds }"
}

missed=0
report() { # name, figure, unit, goal
    local verdict=ok
    awk "BEGIN { exit !($2 <= $4) }" || verdict=MISSED
    [ $verdict = ok ] || missed=1
    printf '%-34s %8.2f %-12s goal %-5s %s\n' "$1" "$2" "$3" "$4" $verdict
}

for ((i = 0; i < starts; ++i)); do
    startDemo
    echo "$pictureMs"
    stopDemo
done | sort -n >times
startDemo
xdotool key Return
every=$(perSecond cpuNanoseconds)
xdotool key space
still=$(perSecond cpuNanoseconds)
memory=$(awk '/^VmHWM/ { print $2 }' /proc/"$demo"/status)
xdotool windowfocus "$noWindow"
sleep 1 # until it has noticed
background=$(perSecond wakeUps)
stopDemo

report "every pixel changes every frame" "$(awk "BEGIN { print $every / 1e7 }")" "% of a core" 8
report "nothing changes" "$(awk "BEGIN { print $still / 1e7 }")" "% of a core" 2
report "in the background" "$background" "wake-ups/s" 10
report "first picture, median of $starts starts" "$(sed -n $((starts / 2 + 1))p times)" ms 200
report "peak memory" "$(awk "BEGIN { print $memory / 1024 }")" MiB 32
exit $missed
