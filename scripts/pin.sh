#!/bin/sh
# Writes the checks of all games in tests/replays anew.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh

take_arguments "" "Writes the checks of all games in tests/replays anew, after a wanted change of the pictures, and tells
which games look different, and from when on. scripts/recorded.sh shows the difference, as long as the
checks are not committed." "$@"

# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES
configure --preset release
build --preset release --target replay
mkdir -p build/pin

# play SCRIPT: leaves what is to become of it, and what it says, in build/pin.
play()
{
    status=0
    (cd build/pin && ../release/bin/replay "../../$1" --data ../../data --pin pinned 2>errors) || status=$?
    case $status in
    0 | 3 | 4) ;; # the end, a clock that stands still, a check that is not met
    *) fail "$(cat build/pin/errors)" ;;
    esac
}

# first_unmet SCRIPT: the first check that is not met, as its line tells, and the frame.
first_unmet()
{
    unmet=$(sed -n 's/^[^:]*:\([0-9]*\): the pictures .* frame \([0-9]*\)$/\1 \2/p' build/pin/errors | head -n 1)
    [ -n "$unmet" ] || return 0
    line=$(sed -n "${unmet% *}p" "$1")
    line=${line#at }
    echo ", not as recorded at ${line%% *} ms or before: frame ${unmet#* }"
}

games=0
changed=0
for script in tests/replays/*.txt; do
    play "$script"
    games=$((games + 1))
    if ! cmp -s build/pin/pinned "$script"; then
        echo "$script: new checks$(first_unmet "$script")"
        cp build/pin/pinned "$script"
        changed=$((changed + 1))
    fi
done
echo "$changed of $games games changed"
