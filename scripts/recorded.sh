#!/bin/sh
# Shows where a recorded game looks different from how it was recorded.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh

take_arguments "NAME [COMMIT]" "Plays tests/replays/NAME.txt with the program and the pictures of a commit, and with those that are here.
Of the first frame that differs it leaves both pictures and the difference in build/recorded/NAME.png,
side by side, and prints both lines of the trace. Without a COMMIT it is the last one that changed the
script." "$@"
name=${1:-}
script=tests/replays/$name.txt
[ -f "$script" ] || bad_use "there is no game '$name'"
commit=${2:-$(git log -1 --format=%h -- "$script")}
commit=$(git rev-parse --verify --quiet --short "$commit^{commit}") || bad_use "there is no such commit"
old=build/recorded/$commit
here=build/recorded/here

# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES
if [ ! -d "$old" ]; then
    mkdir -p "$old.new"
    git archive "$commit" | tar -x -C "$old.new"
    mv "$old.new" "$old"
fi
mkdir -p "$here"
configure -S "$old" -B "$old/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF -DDESKTOP=OFF
build "$old/build" --target replay
configure --preset release
build --preset release --target replay

# play PROGRAM DATA FOLDER: what is in build/recorded/script, leaving trace and picture in the folder.
play()
{
    status=0
    "$1" build/recorded/script --data "$2" --trace "$3/trace" --snapshots "$3" 2>"$3/errors" || status=$?
    [ $status != 2 ] || fail "$(cat "$3/errors")"
}

play_both()
{
    (play "$old/build/bin/replay" "$old/data" "$old")
    (play build/release/bin/replay data "$here")
}

grep -v '^at [0-9]* check ' "$script" >build/recorded/script
play_both
frame=$(cmp "$old/trace" "$here/trace" | sed -n 's/.* line \([0-9]*\)$/\1/p')
[ -n "$frame" ] || { echo "$name is as $commit showed it"; exit; }
for trace in "$old/trace" "$here/trace"; do
    sed -n "${frame}p" "$trace"
done

# The frame's time since the start, at which its picture is asked for.
first=$(sed -n '1s/.*"tick":\([0-9]*\).*/\1/p' "$here/trace")
tick=$(sed -n "${frame}s/.*\"tick\":\([0-9]*\).*/\1/p" "$here/trace")
awk -v at=$(((tick - first) & 0xFFFFFFFF)) '
    /^at / && $2 + 0 > at && !asked { print "at " at " snapshot frame"; asked = 1 }
    { print }
    END { if (!asked) print "at " at " snapshot frame" }' "$script" >build/recorded/script
rm -f "$old/frame.png" "$here/frame.png"
play_both
composite "$old/frame.png" "$here/frame.png" -compose difference build/recorded/difference.png
convert "$old/frame.png" "$here/frame.png" \( build/recorded/difference.png -auto-level \) +append \
    "build/recorded/$name.png"
echo "frame $frame: build/recorded/$name.png shows $commit, what is here, and the difference"
