#!/bin/sh
# Builds the game for the browser, from nothing on Debian 12: the page in build/web, which any web server can serve, and
# `replay` for node, build/node/replay.js.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh

page=build/web
programs=build/web-build/bin
port=8080

take_arguments "[--serve | --test]" "Builds the page of the game into $page and 'replay' for node into build/node.
  --serve  then serves the page on this machine alone, until Ctrl+C
  --test   then plays in a browser that nobody sees, and compares what is seen with 'replay'" "$@"

# integrity FILE: as browsers write what a file must be.
integrity()
{
    printf 'sha256-'
    sha256sum "$1" | cut -d ' ' -f 1 | tr a-f A-F | basenc --base16 -d | base64 -w 0
}

# names: of what is in the page's folder.
names() { find "$page" -type f -printf '%P\n' | sort; }

# list_files NAME...: those of the page as a list in JavaScript.
list_files()
{
    echo '['
    for name; do
        echo "  { name: '$name', bytes: $(wc -c <"$page/$name"), integrity: '$(integrity "$page/$name")' },"
    done
    echo ']'
}

# What the program reads, and what the page loads it with.
assemble_page()
{
    rm -rf "$page"
    mkdir -p "$page"
    cp "$programs/mygame.wasm" data/*.png data/*.jpg data/*.wav "$page"
    rm "$page"/icon-*.png
    # shellcheck disable=SC2046 # one word a name
    echo "/** What the program needs. */
export const FILES = $(list_files $(names));" >"$page/files.js"
    cp "$programs/mygame.js" web/*.html web/*.css web/*.js web/*.webmanifest data/icon-32.png "$page"
    rm "$page/service-worker.js"
    # shellcheck disable=SC2046 # one word a name
    files=$(list_files $(names))
    {
        echo "const VERSION = '$(echo "$files" | sha256sum | cut -c 1-16)';"
        echo "const FILES = $files;"
        cat web/service-worker.js
    } >"$page/service-worker.js"
    # For whoever installs the game, who has a network then.
    cp data/icon-128.png data/icon-256.png "$page"
}

# shellcheck disable=SC2086 # one word a package
install_missing $WEB_PACKAGES
scripts/libraries.sh web
# Where Debian keeps what the compiler's own tools are made of.
export NODE_PATH=/usr/share/nodejs
configure --preset web
build --preset web
assemble_page
mkdir -p build/node
cp "$programs/replay.js" "$programs/replay.wasm" build/node

case $option in
--serve)
    echo "Playing at http://127.0.0.1:$port/ until Ctrl+C is pressed here."
    exec python3 -m http.server --bind 127.0.0.1 --directory "$page" $port
    ;;
--test) exec tests/web/run.sh ;;
*) echo "The page is in $PWD/$page, 'replay' for node in $PWD/build/node." ;;
esac
