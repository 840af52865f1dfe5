#!/bin/sh
# Installs what is missing, builds the game and starts it, on Debian 12 or 13 from nothing. Where there is no display
# for a window, a recorded game is played on the virtual device instead, and its pictures are kept.
set -eu
cd "$(dirname "$(readlink -f "$0")")"
. scripts/packages.sh

programs=build/release/bin
pictures=build/pictures

take_arguments "" "Installs what is missing, builds the game and starts it. Where there is no display, a recorded game is
played without one." "$@"

play_recorded_game()
{
    echo "So a recorded game is played without a window; its pictures: $PWD/$pictures"
    (cd "$programs" && ./replay ../../../replay/demo.txt --snapshots "../../../$pictures")
}

another_copy_runs()
{
    find /proc/[0-9]* -maxdepth 1 -name comm -user "$(id -u)" -exec cat {} + 2>/dev/null | grep -qx mygame
}

# shellcheck disable=SC2086 # one word a package
install_missing $PLAY_PACKAGES
configure --preset release -DBUILD_TESTING=OFF
build --preset release --target mygame replay data

errors=$(mktemp)
trap 'rm -f "$errors"' EXIT
trap exit HUP INT TERM
status=0
(cd "$programs" && exec ./mygame) 2>"$errors" || status=$?
cat "$errors" >&2
if grep -q '^mygame: cannot open a window' "$errors"; then
    play_recorded_game
# The log may be that of a copy that came and went while ours ran.
elif grep -qsx 'InitInit Failed' "$programs/log.txt" && another_copy_runs; then
    echo "The running copy was brought to the front."
fi
exit $status
