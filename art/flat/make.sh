#!/bin/sh
# Makes the fonts, the flat pictures, the icon and the sound in data/ from the drawings
# beside this script.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
data=$here/../../data

packages=
need() { # COMMAND PACKAGE
    command -v "$1" >/dev/null || packages="$packages $2"
}
need g++ g++
need rsvg-convert librsvg2-bin
need sox sox
need convert imagemagick
[ -e /usr/include/png.h ] || packages="$packages libpng-dev"
if [ -n "$packages" ]; then
    echo "art/flat/make.sh: installing$packages"
    root=
    [ "$(id -u)" -eq 0 ] || root=sudo
    # shellcheck disable=SC2086
    $root apt-get install -y --no-install-recommends $packages ||
        { echo "art/flat/make.sh: needs$packages" >&2; exit 1; }
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$data"

build() { # PROGRAM SOURCE...
    program=$1
    shift
    (cd "$here" && g++ -std=c++17 -O2 -Wall -Wextra -o "$work/$program" "$@" image.cpp -lpng)
}
build fontstrip fontstrip.cpp glyphs.cpp
build letter letter.cpp glyphs.cpp
build relief relief.cpp
build reduce reduce.cpp
build globe globe.cpp

cp "$here"/*.svg "$work"
cd "$work"
scale=8
echo '.colour,.glow{display:none}' >height.css
echo '.height,.glow{display:none}' >colour.css
echo '.height,.colour{display:none}' >glow.css

# lit DRAWING WIDTH HEIGHT OUTPUT [mirror]: the drawing's layers, lit, still large.
lit() {
    for layer in height colour glow; do
        rsvg-convert --stylesheet "$layer.css" -w $(($2 * scale)) -h $(($3 * scale)) \
            "$1.svg" -o "layer-$layer.png"
    done
    # shellcheck disable=SC2086
    ./relief layer-height.png layer-colour.png layer-glow.png "$4" "$scale" ${5:-}
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

lit shop 240 320 big.png
./reduce big.png "$data/shop.png" 240 320 opaque
./letter "$data/shop.png" "$here/labels.txt" "BUY" 63 286 '#FFF8E8' '#FFD28C' '#2A1804'
./letter "$data/shop.png" "$here/labels.txt" "BACK TO GAME" 173 286 '#F4FCFF' '#A8E4FF' '#04141E'

icons=
for size in 16 32 48 64 128 256; do
    drawing=icon
    [ "$size" -gt 16 ] || [ ! -e icon-small.svg ] || drawing=icon-small
    rsvg-convert -w $((size * 4)) -h $((size * 4)) "$drawing.svg" -o big.png
    ./reduce big.png "$data/icon-$size.png" "$size" "$size" alpha
    [ "$size" -eq 128 ] || icons="$icons $data/icon-$size.png"
done
# shellcheck disable=SC2086
convert $icons "$data/icon.ico"

sh "$here/explosion.sh" "$data/explosion.wav"
