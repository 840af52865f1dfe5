#!/bin/sh
# Makes every picture and sound of the game again from art/ and writes them to data/. For Debian 12.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
take_arguments "" "Makes every picture and sound of the game again from art/ and writes them to data/." "$@"

# shellcheck disable=SC2086 # one word a package
install_missing $ART_PACKAGES
mkdir -p build/art data
for program in earthmap rocks explosion pack; do
    g++ -std=c++20 -O2 -Wall -Wextra -Wconversion -Wshadow -I. art/$program.cpp art/picture.cpp -o build/art/$program -lpng -ljpeg
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

echo "flat pictures, fonts, sound"
$art/flat/make.sh
$art/explosion_sound.sh "$data/explosion.wav"

echo "maps and shapes"
./earthmap .
./rocks .

echo "scenes"
for scene in bg menu game_over; do
    render "$scene" "$scene.png" 960 1280
done
./pack scene "$data/bg.jpg" 8 190 1.1 30 157 210 173 bg.png frame.png
./pack scene "$data/menu.jpg" 9 260 1.1 60 98 180 222 menu.png title.png
./pack scene "$data/game_over.jpg" 42 220 0.9 0 212 239 295 game_over.png

echo "asteroids"
# rock KIND FILE COLOURS: the colours from the night side to the sunlit crests
rock()
{
    render asteroid "asteroid$1-.png" 320 320 "Declare=Kind=$1" +KFI1 +KFF24 +KC
    ./pack rock "$data/$2" 32 "$3" asteroid"$1"-[0-9]*.png
}
rock 1 asteroid.png 1C1A20,302C34,4A413F,6A5D52,8E7D67,B2A083,D4C4A2,F4E8CA
rock 2 asteroid2.png 1E1420,441F22,6C3028,96412D,BC5F3C,DA8858,EDB48C,FFE2C8
rock 3 asteroid3.png 141C2E,26344E,3C5070,586E8C,7E96B0,A8BCCE,CCDAE4,F0F8FC
rock 4 asteroid4.png 1C1A1E,372D1E,5A4826,826638,AA8A4E,CCAC6C,E6CE94,FAEEC8

echo "satellite, missile, blast"
render satellite satellite.png 360 360
./pack picture "$data/satellite.png" 30 30 0.35 satellite.png
convert "$art/missile.xpm" -strip PNG32:missile.png
./pack dots "$data/missile.png" missile.png
./explosion .
./pack blast "$data/explosion.png" explosion[0-9]*.png
