#!/bin/sh
# Makes the README's pictures from a recorded game: three screens, which shops for programs show, too, and a film of a part
# of it. Needs the release build (./test.sh or ./play.sh).
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
take_arguments "" "Makes the README's pictures from a recorded game, with the release build of ./test.sh or ./play.sh." "$@"

docs=$PWD/docs
replay=$PWD/build/release/bin/replay
demo=$PWD/replay/demo.txt

# The part shown in motion, in seconds.
first=18.3
last=21.9

[ -x "$replay" ] || fail "$replay is missing; run ./test.sh first"
install_missing imagemagick

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

"$replay" "$demo" --snapshots pictures

# Sharp pixels at twice the size, without the date of the day.
for screen in game menu shop; do
    convert pictures/$screen.png -filter point -resize 200% -strip "$docs/$screen.png"
done
"$docs/../scripts/film.sh" "$demo" "$docs/motion.gif" $first $last
