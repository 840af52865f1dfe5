#!/bin/bash
# Measures what the desktop device costs without a graphics processor: a 1280 x 1024 display on which the
# window is three times the handheld's screen. Prints five figures beside their goals; fails when one is missed.
#
# usage: bench/desktop_figures.sh [folder with the programs, build/release/bin by default]
set -u

seconds=10
starts=9

# shellcheck source=tests/desktop_session.sh
. "$(dirname "$0")/../tests/desktop_session.sh"

cpuNanoseconds() { cat /proc/"$demo"/task/*/schedstat | awk '{ sum += $1 } END { printf "%.0f", sum }'; }

# The growth of a counter a second, over the time that is measured.
perSecond() {
    local before
    before=$($1)
    sleep $seconds
    awk "BEGIN { print ($($1) - $before) / $seconds }"
}

percentOfCore() { awk "BEGIN { print $(perSecond cpuNanoseconds) / 1e7 }"; }

missed=0
report() { # name, figure, unit, goal
    local verdict=ok
    awk "BEGIN { exit !($2 <= $4) }" || verdict=MISSED
    [ $verdict = ok ] || missed=1
    printf '%-34s %8.2f %-12s goal %-5s %s\n' "$1" "$2" "$3" "$4" $verdict
}

startServer
for ((i = 0; i < starts; ++i)); do
    startDemo
    echo "$pictureMs" >>"$folder/times"
    stopDemo
done
startDemo
xdotool key Return
report "every pixel changes every frame" "$(percentOfCore)" "% of a core" 8
xdotool key space
report "nothing changes" "$(percentOfCore)" "% of a core" 2
memory=$(awk '/^VmHWM/ { print $2 / 1024 }' /proc/"$demo"/status)
xdotool windowfocus "$noWindow"
sleep 1 # until it has noticed
report "in the background" "$(perSecond wakeUps)" "wake-ups/s" 10
report "first picture, median of $starts starts" "$(sort -n "$folder/times" | sed -n $((starts / 2 + 1))p)" ms 200
report "peak memory" "$memory" MiB 32
exit $missed
