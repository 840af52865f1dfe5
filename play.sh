#!/bin/sh
# Installs what is missing, builds the game and starts it, on Debian 12 from nothing. Where there is no display for a
# window, a recorded game is played on the virtual device instead, and its pictures are kept.
set -eu
cd "$(dirname "$0")"
. scripts/packages.sh

programs=build/release/bin
pictures=build/pictures

play_recorded_game()
{
    echo "There is no display for a window, so a recorded game is played without one; its pictures: $PWD/$pictures"
    (cd "$programs" && ./replay ../../../replay/demo.txt --snapshots "../../../$pictures")
}

# Another copy of the game runs: ours has brought it to the front.
another_copy_runs()
{
    find /proc/[0-9]* -maxdepth 1 -name comm -user "$(id -u)" -exec cat {} + 2>/dev/null | grep -qx mygame
}

# shellcheck disable=SC2086 # one word a package
install_missing $PLAY_PACKAGES
cmake --preset release --log-level=WARNING -DBUILD_TESTING=OFF >/dev/null
cmake --build --preset release --target mygame replay data -- --quiet

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    play_recorded_game
    exit
fi
(cd "$programs" && ./mygame)
# The log is the game's only word on why it could not open a window.
if grep -q 'Init Failed' "$programs/log.txt" && ! another_copy_runs; then
    play_recorded_game
fi
