#!/bin/sh
# Builds the game for Windows with Debian's mingw-w64, from nothing, and packs it for players.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/archives.sh

take_arguments "[--test]" "Installs what is missing and builds the game for Windows: build/windows/mygame-windows.zip. With --test it is then
tried under wine, too: by real clicks, and by the traces of recorded and random games." "$@"

random_games=200

programs=build/windows/bin
folder=build/windows/mygame-windows
archive=$PWD/$folder.zip

# What Windows brings along.
system_libraries="ADVAPI32 GDI32 IMM32 KERNEL32 OLEAUT32 SETUPAPI SHELL32 USER32 VERSION WINMM msvcrt ole32"

# needs_only_the_system PROGRAM
needs_only_the_system()
{
    for library in $(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*DLL Name: \(.*\)\.dll$/\1/p'); do
        case " $system_libraries " in
        *" $library "*) ;;
        *) fail "$1 needs $library.dll, which is not there on every Windows" ;;
        esac
    done
}

# Of all icons the window's only: the programs hold the others themselves.
gather()
{
    rm -rf "$folder"
    mkdir -p "$folder/licences"
    cp "$programs/mygame.exe" "$programs/replay.exe" data/*.png data/*.jpg data/*.wav "$folder"
    rm "$folder"/icon-*.png
    cp data/icon-64.png "$folder"
    sed 's/$/\r/' packaging/windows/README.txt >"$folder/README.txt"
    cp build/libraries/windows/licences/*.txt "$folder/licences"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licences/gcc.txt"
    cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$folder/licences/mingw-w64.txt"
}

# shellcheck disable=SC2086 # one word a package
install_missing $WINDOWS_PACKAGES
scripts/libraries.sh windows
configure -S . -B build/windows -G Ninja --toolchain cmake/windows.cmake --no-warn-unused-cli \
    -DCMAKE_FIND_ROOT_PATH="$PWD/build/libraries/windows" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF
build build/windows
needs_only_the_system $programs/mygame.exe
needs_only_the_system $programs/replay.exe
gather
zip_folder "$folder" "$archive"
echo "The game for Windows: $archive"

[ -n "$option" ] || exit 0
# shellcheck disable=SC2086 # one word a package
install_missing $WINDOWS_TEST_PACKAGES
. scripts/wine.sh
scripts/same_traces.sh windows $random_games wine $programs/replay.exe
tests/program/windows_test.sh build/release/bin "$archive"
