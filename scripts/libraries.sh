#!/bin/sh
# Builds SDL2, libpng, libjpeg-turbo and zlib for Windows or the browser from Debian's source packages, into
# build/libraries/TARGET, with the licences of each. What was built stays there for the next time.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

take_arguments "TARGET" "Builds the libraries that the game stands on for the target 'windows' or 'web'." "$@"
target=${1:-}
case $target in
windows) packages=$WINDOWS_PACKAGES ;;
web) packages=$WEB_PACKAGES ;;
*) bad_use "the target is 'windows' or 'web'" ;;
esac

place=$PWD/build/libraries
sources=$place/sources
prefix=$place/$target

# What the game does not need of SDL.
sdl_left_out="-DSDL_RENDER=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_HIDAPI=OFF -DSDL_SENSOR=OFF -DSDL_POWER=OFF
    -DSDL_LOCALE=OFF -DSDL_MISC=OFF -DSDL_OPENGL=OFF -DSDL_OPENGLES=OFF -DSDL_VULKAN=OFF"

# Makes apt's lists of source packages from the machine's own list of where packages come from, in folders of ours.
prepare_apt()
{
    mkdir -p "$place/apt/lists/partial" "$place/apt/cache/archives/partial" "$place/apt/sources.list.d"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -e "$list" ] || sed -n 's/^deb /deb-src /p' "$list"
    done >"$place/apt/sources.list"
    for list in /etc/apt/sources.list.d/*.sources; do
        [ ! -e "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" >"$place/apt/sources.list.d/${list##*/}"
    done
    cat >"$place/apt/apt.conf" <<CONF
APT::Sandbox::User "";
Dir::State "$place/apt";
Dir::State::status "/var/lib/dpkg/status";
Dir::Cache "$place/apt/cache";
Dir::Etc::sourcelist "$place/apt/sources.list";
Dir::Etc::sourceparts "$place/apt/sources.list.d";
CONF
    export APT_CONFIG="$place/apt/apt.conf"
    # One of several lists may be out of reach: what counts is that the sources come.
    apt-get -qq update 2>/dev/null || true
}

# fetch PACKAGE: its source, unpacked, in $sources/PACKAGE. The newest revision that a list names may be gone already.
fetch()
{
    [ ! -e "$sources/$1" ] || return 0
    [ -n "${APT_CONFIG:-}" ] || prepare_apt
    echo "Fetching the source of $1 ..."
    fresh=$sources/$1.new
    rm -rf "$fresh"
    mkdir -p "$fresh"
    for version in $(apt-cache showsrc "$1" | sed -n 's/^Version: //p' | sort -Vru); do
        (cd "$fresh" && apt-get -qq source "$1=$version" >/dev/null 2>&1) || continue
        mv "$fresh"/*/ "$sources/$1"
        rm -rf "$fresh"
        return 0
    done
    fail "cannot fetch the source of $1; is there a network?"
}

# keep_for_next_time PACKAGE: with its licence.
keep_for_next_time()
{
    mkdir -p "$prefix/licences" "$prefix/built"
    cp "$sources/$1/debian/copyright" "$prefix/licences/$1.txt"
    touch "$prefix/built/$1"
}

# start PACKAGE: unpacks it; fails where it was built already.
start()
{
    [ ! -e "$prefix/built/$1" ] || return 1
    fetch "$1"
    echo "Building $1 for $target ..."
    build=$place/$target-build/$1
    rm -rf "$build"
    mkdir -p "$build"
}

# build_library PACKAGE OPTION...: by its own CMake files.
build_library()
{
    package=$1
    shift
    start "$package" || return 0
    {
        cmake -S "$sources/$package" -B "$build" -G Ninja --toolchain "$toolchain" \
            -DCMAKE_BUILD_TYPE=MinSizeRel -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_FIND_ROOT_PATH="$prefix" \
            -DCMAKE_C_FLAGS="-ffunction-sections -fdata-sections" "$@" &&
            cmake --build "$build" && cmake --install "$build"
    } >"$build.log" 2>&1 || fail "cannot build $package for $target; what the build said: $build.log"
    keep_for_next_time "$package"
}

# Its own CMake files build nothing for the browser, and a shared library for Windows. What reads and writes files of its
# own is not needed.
build_zlib()
{
    start zlib || return 0
    mkdir -p "$prefix/lib" "$prefix/include"
    cp "$sources/zlib/zlib.h" "$sources/zlib/zconf.h" "$prefix/include"
    (
        cd "$build" || exit
        for name in adler32 compress crc32 deflate infback inffast inflate inftrees trees uncompr zutil; do
            "$compiler" -Os -ffunction-sections -fdata-sections -c "$sources/zlib/$name.c" || exit
        done
        "$archiver" rcs "$prefix/lib/libz.a" ./*.o
    ) >"$build.log" 2>&1 || fail "cannot build zlib for $target; what the compiler said: $build.log"
    keep_for_next_time zlib
}

build_png() { build_library libpng1.6 -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF "$@"; }

build_jpeg()
{
    build_library libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DWITH_ARITH_DEC=OFF -DWITH_ARITH_ENC=OFF "$@"
}

# shellcheck disable=SC2086 # one word an option
build_sdl() { build_library libsdl2 -DSDL_SHARED=OFF -DSDL_STATIC=ON -DSDL_TEST=OFF $sdl_left_out "$@"; }

# shellcheck disable=SC2086 # one word a package
install_missing $packages
case $target in
windows)
    toolchain=$PWD/cmake/windows.cmake
    compiler=x86_64-w64-mingw32-gcc-posix
    archiver=x86_64-w64-mingw32-ar
    build_zlib
    build_png
    build_jpeg -DWITH_SIMD=OFF
    build_sdl
    ;;
web)
    toolchain=$EMSCRIPTEN_TOOLCHAIN
    compiler=emcc
    archiver=emar
    # Where Debian keeps what the compiler's own tools are made of.
    export NODE_PATH=/usr/share/nodejs
    build_zlib
    build_png -DPNG_HARDWARE_OPTIMIZATIONS=OFF
    # What it would measure by running a program.
    build_jpeg -DWITH_SIMD=OFF -DSIZE_T=4 -DHAVE_SIZE_T=1 -DUNSIGNED_LONG=4 -DHAVE_UNSIGNED_LONG=1
    build_sdl -DSDL_THREADS=OFF
    ;;
esac
