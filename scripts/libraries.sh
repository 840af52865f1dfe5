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
# What was built by another one is built anew.
recipe=$(cksum <scripts/libraries.sh)

# What the game does not need of SDL.
sdl_left_out="-DSDL_RENDER=OFF -DSDL_JOYSTICK=OFF -DSDL_HAPTIC=OFF -DSDL_HIDAPI=OFF -DSDL_SENSOR=OFF -DSDL_POWER=OFF
    -DSDL_LOCALE=OFF -DSDL_MISC=OFF -DSDL_OPENGL=OFF -DSDL_OPENGLES=OFF -DSDL_VULKAN=OFF"

# For the least of SDL: what the compiler has anyway is not made again.
core_options="-Os -w -ffunction-sections -fdata-sections -DHAVE_LIBC=1 -DHAVE_STDLIB_H=1 -DHAVE_STDIO_H=1 -DHAVE_STRING_H=1
    -DHAVE_CTYPE_H=1 -DHAVE_MATH_H=1 -DHAVE_MALLOC=1 -DSDL_AUDIO_DISABLED=1
    -DSDL_LEAN_AND_MEAN=1"

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
    echo "$recipe" >"$prefix/built/$1"
}

# start PACKAGE: unpacks it; fails where it was built already.
start()
{
    [ "$(cat "$prefix/built/$1" 2>/dev/null)" != "$recipe" ] || return 1
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
        rm -f "$prefix/lib/libz.a"
        "$archiver" rcs "$prefix/lib/libz.a" ./*.o
    ) >"$build.log" 2>&1 || fail "cannot build zlib for $target; what the compiler said: $build.log"
    keep_for_next_time zlib
}

build_png() { build_library libpng1.6 -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF "$@"; }

build_jpeg()
{
    build_library libjpeg-turbo -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DWITH_ARITH_DEC=OFF -DWITH_ARITH_ENC=OFF "$@"
}

# keep_only_what_is_called: of SDL, which otherwise refers to all its functions so that somebody could exchange it. That can
# be changed in the source alone.
keep_only_what_is_called()
{
    fetch libsdl2
    sed -i 's/^#define SDL_DYNAMIC_API 1$/#define SDL_DYNAMIC_API 0/' "$sources/libsdl2/src/dynapi/SDL_dynapi.h"
}

# shellcheck disable=SC2086 # one word an option
build_sdl() { build_library libsdl2 -DSDL_SHARED=OFF -DSDL_STATIC=ON -DSDL_TEST=OFF $sdl_left_out "$@"; }

# What is left of SDL in a page: events and the size of one window, whose display is none. Its own CMake files would ask the
# compiler hundreds of questions for that, and take the page's events for themselves.
build_sdl_core()
{
    start libsdl2 || return 0
    headers=$prefix/include/SDL2
    package=$prefix/lib/cmake/SDL2
    mkdir -p "$headers" "$package"
    cp "$sources"/libsdl2/include/*.h "$headers"
    cp "$headers/SDL_config_minimal.h" "$headers/SDL_config.h"
    version=$(sed -n 's/^set(SDL_[A-Z]*_VERSION \([0-9]*\))$/\1/p' "$sources/libsdl2/CMakeLists.txt" | paste -sd .)
    cat >"$package/SDL2Config.cmake" <<CONFIG
add_library(SDL2::SDL2 STATIC IMPORTED)
set_target_properties(SDL2::SDL2 PROPERTIES IMPORTED_LOCATION "\${CMAKE_CURRENT_LIST_DIR}/../../libSDL2.a"
  INTERFACE_INCLUDE_DIRECTORIES "\${CMAKE_CURRENT_LIST_DIR}/../../../include/SDL2")
CONFIG
    cat >"$package/SDL2ConfigVersion.cmake" <<CONFIG
set(PACKAGE_VERSION $version)
set(PACKAGE_VERSION_COMPATIBLE TRUE)
CONFIG
    (
        cd "$sources/libsdl2/src" || exit
        find "$PWD" -maxdepth 1 -name '*.c'
        for folder in atomic cpuinfo events file libm loadso/dummy stdlib thread thread/generic timer timer/dummy video \
            video/dummy video/yuv2rgb; do
            find "$PWD/$folder" -maxdepth 1 -name '*.c'
        done
    ) >"$build/files"
    (
        cd "$build" || exit
        rm -f "$prefix/lib/libSDL2.a"
        # shellcheck disable=SC2086 # one word an option
        xargs -d '\n' -P "$(nproc)" -n 16 "$compiler" $core_options -I"$headers" -c <files &&
            "$archiver" rcs "$prefix/lib/libSDL2.a" ./*.o
    ) >"$build.log" 2>&1 || fail "cannot build SDL2 for $target; what the compiler said: $build.log"
    keep_for_next_time libsdl2
}

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
    keep_only_what_is_called
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
    build_sdl_core
    ;;
esac
