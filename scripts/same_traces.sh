#!/bin/sh
# Shows that the game is the same elsewhere: the traces of all recorded games, and of games played at random, that another
# build of `replay` makes are those of the release build, byte for byte.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

help="usage: $0 NAME RANDOM_GAMES COMMAND...
Compares what COMMAND, a 'replay' for NAME, shows of all recorded games and of RANDOM_GAMES played at random."
[ "$*" != --help ] || { echo "$help"; exit; }
[ $# -ge 3 ] || bad_use "a name, a count and a command are needed"
name=$1
random_games=$2
shift 2

# About half a minute of play each.
random_frames=2000

place=build/traces/$name
games=build/traces/random

# trace SCRIPT COMMAND...: to standard output, with the exit status where it is not 0.
trace()
{
    script=$1
    shift
    "$@" "$script" --data data --trace - --snapshots "$place" 2>/dev/null || echo "exit code $?"
}

# compare SCRIPT COMMAND...
compare()
{
    trace "$1" build/release/bin/replay >"$place/here"
    trace "$@" >"$place/there"
    cmp "$place/here" "$place/there" || fail "$1: $name shows something else"
}

# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES
configure --preset release
build --preset release --target replay soak data
rm -rf "$place"
mkdir -p "$place" "$games"

recorded=0
for script in tests/replays/*.txt replay/demo.txt; do
    compare "$script" "$@"
    recorded=$((recorded + 1))
done

# The same every time: what is random about them is the number.
number=0
while [ "$number" -lt "$random_games" ]; do
    number=$((number + 1))
    build/release/bin/soak $random_frames $number "$games/$number.txt" >/dev/null
    compare "$games/$number.txt" "$@"
done
rm -rf "$place"
echo "$recorded recorded games and $number random ones are the same for $name, byte for byte"
