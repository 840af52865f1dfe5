#!/bin/bash
# Measures what the window costs without a graphics processor, and what a player feels: a 1280 x 1024 display on
# which the picture is three times the handheld's screen, and a full screen of 1920 x 1080, where it is 3.375 times.
# Prints the figures beside their goals; fails when one is missed. Nothing else should run meanwhile.
set -eu

. "$(dirname "$(readlink -f "$0")")/../scripts/packages.sh"
take_arguments "[FOLDER_OF_THE_PROGRAMS]" "Measures what the window costs and what a player feels, and fails when a goal is
missed. Takes the programs from build/release/bin where no folder is given." "$@"
# shellcheck source=bench/device_demo.sh
. "$(dirname "$(readlink -f "$0")")/device_demo.sh"

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
start_demo
"$programs/tap_latency" "$window" || missed=1
stop_demo
kill "$(jobs -p | tail -n 1)"
cd /
rm -rf "$work"

SIZE=1920x1080 start_display
cd "$work"
start_demo
xdotool key F11
sleep 1
tap_square_in_full_screen() { xdotool mousemove $((555 + (25 + 38 * $1) * 27 / 8)) 84 click 1; }
tap_square_in_full_screen 1
report "every pixel, at 3.375 times" "$(percent_of_core)" "% of a core" 5
stop_demo
exit $missed
