#!/bin/sh
# Makes every picture and sound of the game again from art/ and writes them to data/. For Debian 12 and 13.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
take_arguments "" "Makes every picture and sound of the game again from art/ and writes them to data/." "$@"

# shellcheck disable=SC2086 # one word a package
install_missing $ART_PACKAGES
mkdir -p build/art data
for program in earthmap rocks explosion pack; do
    g++ -std=c++20 -O2 -Wall -Wextra -I. art/$program.cpp art/picture.cpp -o build/art/$program -lpng -ljpeg
done

# From here every path is relative to this folder: the renderer takes none that holds a space.
cd build/art
art=../../art
data=../../data
rm -f asteroid*-*.png explosion*.png

# render SCENE OUT WIDTH HEIGHT [OPTION...]
render()
{
    scene=$1 out=$2 width=$3 height=$4
    shift 4
    if ! povray -D -GD -GR -GS -A +UA +FN +L$art +L. +I"$art/$scene.pov" \
        +O"$out" +W"$width" +H"$height" "$@" >"$out.log" 2>&1; then
        grep -a -i -A 3 error "$out.log" >&2 || true
        fail "rendering $scene failed"
    fi
}

echo "maps and shapes"
./earthmap .
./rocks .

echo "scenes"
for scene in bg menu game_over; do
    render "$scene" "$scene.png" 960 1280
done
./pack scene "$data/bg.jpg" 8 190 0.7 bg.png
./pack scene "$data/menu.jpg" 9 260 1.1 menu.png
./pack scene "$data/game_over.jpg" 42 220 0.9 game_over.png

echo "asteroids"
for kind in 1 2 3 4; do
    render asteroid "asteroid$kind-.png" 320 320 "Declare=Kind=$kind" +KFI1 +KFF24 +KC
    suffix=$kind
    [ "$kind" != 1 ] || suffix=
    ./pack strip "$data/asteroid$suffix.png" 32 32 0.35 asteroid"$kind"-[0-9]*.png
done

echo "satellite, missile, blast"
render satellite satellite.png 360 312
./pack picture "$data/satellite.png" 30 26 0.35 satellite.png
render missile missile.png 192 192
./pack strip "$data/missile.png" 12 12 0.25 missile.png
./explosion .
./pack blast "$data/explosion.png" 64 64 explosion[0-9]*.png

echo "flat pictures, fonts, sound"
$art/flat/make.sh
