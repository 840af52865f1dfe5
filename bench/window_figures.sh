#!/bin/bash
# Measures what the desktop device costs without a graphics processor: a 1280 x 1024 display on which the
# window is three times the handheld's screen. Prints five figures beside their goals; fails when one is missed.
#   window_figures.sh [FOLDER_OF_THE_PROGRAMS, build/release/bin by default]
set -eu

# shellcheck source=tests/support/device_demo.sh
. "$(dirname "$0")/../tests/support/device_demo.sh"

seconds=10
starts=9

wake_ups() { awk '/^voluntary_ctxt/ { sum += $2 } END { print sum }' /proc/"$demo"/task/*/status; }
cpu_nanoseconds() { cat /proc/"$demo"/task/*/schedstat | awk '{ sum += $1 } END { printf "%.0f", sum }'; }

# per_second COMMAND: the growth of what the command prints, over the time that is measured.
per_second()
{
    local before
    before=$($1)
    sleep $seconds
    awk "BEGIN { print ($($1) - $before) / $seconds }"
}

percent_of_core() { awk "BEGIN { print $(per_second cpu_nanoseconds) / 1e7 }"; }

# report NAME FIGURE UNIT GOAL
missed=0
report()
{
    local verdict=ok
    awk "BEGIN { exit !($2 <= $4) }" || verdict=MISSED
    [ $verdict = ok ] || missed=1
    printf '%-34s %8.2f %-12s goal %-5s %s\n' "$1" "$2" "$3" "$4" $verdict
}

# tap_square N: on one of the coloured squares at the picture's top.
tap_square() { xdotool mousemove --window "$window" $((3 * (25 + 38 * $1))) 75 click 1; }

start_display
cd "$work"
for ((i = 0; i < starts; ++i)); do
    start_demo
    echo "$picture_ms" >> start_times
    stop_demo
done
start_demo
tap_square 1
report "every pixel changes every frame" "$(percent_of_core)" "% of a core" 8
tap_square 0
report "nothing changes" "$(percent_of_core)" "% of a core" 2
memory=$(awk '/^VmHWM/ { print $2 / 1024 }' /proc/"$demo"/status)
xdotool windowfocus "$no_window"
sleep 1 # until it has noticed
report "in the background" "$(per_second wake_ups)" "wake-ups/s" 10
report "first picture, median of $starts starts" "$(sort -n start_times | sed -n $((starts / 2 + 1))p)" ms 200
report "peak memory" "$memory" MiB 32
stop_demo
exit $missed
