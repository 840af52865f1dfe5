#!/bin/sh
# Makes the README's pictures from a recorded game: two screens, and an animated picture of a part of it.
# Needs the release build (./test.sh or ./play.sh).
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
take_arguments "" "Makes the README's pictures from a recorded game, with the release build of ./test.sh or ./play.sh." "$@"

docs=$PWD/docs
replay=$PWD/build/release/bin/replay
demo=$PWD/replay/demo.txt

# The part shown in motion, and the time between its pictures, in milliseconds.
first=18300
last=23500
step=80

[ -x "$replay" ] || fail "$replay is missing; run ./test.sh first"
install_missing imagemagick

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# Puts a snapshot line for each picture into the recording, where its time falls.
awk -v first=$first -v last=$last -v step=$step '
    BEGIN { next_at = first }
    $1 == "at" { while (next_at <= last && next_at <= $2) { print "at", next_at, "snapshot motion-" next_at; next_at += step } }
    { print }' "$demo" > motion.txt

"$replay" motion.txt --snapshots pictures

# Sharp pixels at twice the size, without the date of the day.
for screen in menu shop; do
    convert pictures/$screen.png -filter point -resize 200% -strip "$docs/$screen.png"
done
convert -delay $((step / 10)) -loop 0 pictures/motion-*.png +dither +remap -layers OptimizeTransparency "$docs/motion.gif"
