#!/bin/sh
# Makes the fonts, the flat pictures and the icon in data/ from the drawings beside this script, and in build/art what
# is laid over the scenes.
set -eu

# What stands in the main menu's sky. Any letters that font_big.txt has.
game_name=MYGAME

cd "$(dirname "$0")/../.."
. scripts/packages.sh

# shellcheck disable=SC2086 # one word a package
install_missing $ART_PACKAGES
here=$PWD/art/flat
data=$PWD/data
scenes=$PWD/build/art
mkdir -p "$data" "$scenes"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

build() # PROGRAM [SOURCE]
{
    g++ -std=c++20 -O2 -Wall -Wextra -Wconversion -Wshadow -I. "art/flat/$1.cpp" ${2:+"art/flat/$2"} art/picture.cpp \
        -o "$work/$1" -lpng
}
build fontstrip glyphs.cpp
build letter glyphs.cpp
build title glyphs.cpp
build relief
build reduce
build globe

cp "$here"/*.svg "$work"
cd "$work"
scale=8
echo '.colour,.glow{display:none}' >height.css
echo '.height,.glow{display:none}' >colour.css
echo '.height,.colour{display:none}' >glow.css

# lit DRAWING WIDTH HEIGHT OUTPUT [mirror]: the drawing's layers, lit, still large.
lit()
{
    for layer in height colour glow; do
        rsvg-convert --stylesheet "$layer.css" -w $(($2 * scale)) -h $(($3 * scale)) \
            "$1.svg" -o "layer-$layer.png"
    done
    ./relief layer-height.png layer-colour.png layer-glow.png "$4" "$scale" ${5:+"$5"}
}

./fontstrip "$here/font.txt" "$here/font_big.txt" "$data"

./globe globe.png 512 210 23
./globe limb.png 1024 20 -30

lit cap 60 29 big.png
./reduce big.png "$data/menu_left.png" 60 29 key '#FF00FF'
lit cap 60 29 big.png mirror
./reduce big.png "$data/menu_right.png" 60 29 key '#FF00FF'

lit nuke 26 24 big.png
./reduce big.png "$data/nuke.png" 26 24 corner '#FF00FF'
lit menu 30 30 big.png
./reduce big.png "$data/menu.png" 30 30 corner '#FF00FF'

lit frame 240 320 big.png
./reduce big.png "$scenes/frame.png" 240 320 alpha

./title "$here/font_big.txt" "$game_name" 240 320 48 "$scale" height.png colour.png glow.png
./relief height.png colour.png glow.png big.png "$scale"
./reduce big.png "$scenes/title.png" 240 320 alpha

lit shop 240 320 big.png
./reduce big.png "$data/shop.png" 240 320 opaque
./letter "$data/shop.png" "$here/labels.txt" "BUY" 63 286 '#FFF8E8' '#FFD28C' '#2A1804'
./letter "$data/shop.png" "$here/labels.txt" "BACK TO GAME" 173 286 '#F4FCFF' '#A8E4FF' '#04141E'

set -- # gathers the sizes that the icon file holds
for size in 16 32 48 64 128 256 512; do
    drawing=icon
    [ "$size" -gt 16 ] || drawing=icon-small
    rsvg-convert -w $((size * 4)) -h $((size * 4)) "$drawing.svg" -o big.png
    ./reduce big.png "$data/icon-$size.png" "$size" "$size" alpha
    case $size in
    128 | 512) ;;
    *) set -- "$@" "$data/icon-$size.png" ;;
    esac
done
convert "$@" "$data/icon.ico"
