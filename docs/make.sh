#!/bin/sh
# Makes the README's pictures from a recorded game: two screens, and an animated picture of a part of it.
# Needs the release build (./test.sh or ./play.sh) and ImageMagick.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
replay=$here/../build/release/bin/replay
demo=$here/../tools/replay/demo.txt

# The part shown in motion, and the time between its pictures, in milliseconds.
first=22400
last=27600
step=80

[ -x "$replay" ] || { echo "docs/make.sh: $replay is missing; run ./test.sh first" >&2; exit 1; }
command -v convert >/dev/null || { echo "docs/make.sh: convert is missing; install the package imagemagick" >&2; exit 1; }

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
enlarge="-filter point -resize 200% -strip"
convert pictures/menu.png $enlarge "$here/menu.png"
convert pictures/shop.png $enlarge "$here/shop.png"
convert -delay $((step / 10)) -loop 0 pictures/motion-*.png +dither +remap -layers OptimizeTransparency "$here/motion.gif"
