#!/bin/sh
# Shows that the game is the same on other processors: builds logic, tests and `replay` for 32-bit ARM, and for s390x,
# whose numbers begin with their high byte, runs the tests in an emulator, and compares the traces of all recorded games,
# byte for byte, with those of the release build.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

# The decoders' libraries and GoogleTest; SDL is not needed without a window.
libraries="libgtest-dev libjpeg62-turbo-dev libpng-dev nlohmann-json3-dev zlib1g-dev"

# An emulator takes its time.
random_games=5

# fetch_libraries ARCHITECTURE: Debian's packages for it, without making them part of this system.
fetch_libraries()
{
    root=build/$1-root
    [ ! -e "$root/complete" ] || return 0
    state=$PWD/build/$1-packages
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$state/deb" "$root"
    : > "$state/status"
    cat >"$state/apt.conf" <<CONF
APT::Architecture "$1";
APT::Architectures "$1";
APT::Sandbox::User "";
Dir::State "$state";
Dir::State::status "$state/status";
Dir::Cache "$state/cache";
CONF
    export APT_CONFIG="$state/apt.conf"
    echo "Fetching packages for $1: $libraries"
    # shellcheck disable=SC2086 # one word a package
    # One of several package lists may be out of reach: what counts is that the packages come.
    (cd "$state/deb" && { apt-get -qq update 2>/dev/null || true; } && apt-get -qq download $libraries) ||
        fail "cannot fetch Debian's packages for $1"
    unset APT_CONFIG
    for package in "$state"/deb/*.deb; do
        dpkg -x "$package" "$root"
    done
    touch "$root/complete"
}

# try_processor ARCHITECTURE TRIPLET EMULATOR: by the names that Debian, compilers and QEMU have for it.
try_processor()
{
    fetch_libraries "$1"
    cmake -S . -B "build/$1" -G Ninja --log-level=WARNING --toolchain cmake/cross.cmake -DTRIPLET="$2" \
        -DCROSS_ROOT="$PWD/build/$1-root" -DCMAKE_CROSSCOMPILING_EMULATOR="$3" \
        -DCMAKE_BUILD_TYPE=Release -DDESKTOP=OFF >/dev/null
    cmake --build "build/$1" -- --quiet
    # Files that are damaged in every way, and all games at once, take long in the emulator; the decoders are not ours, and the
    # games come below.
    ctest --test-dir "build/$1" --output-on-failure --no-tests=error --parallel "$(nproc)" --exclude-regex 'BadData|Recording'
    scripts/same_traces.sh "$1" $random_games "$3" "build/$1/bin/replay"
}

# shellcheck disable=SC2086 # one word a package
install_missing $CROSS_PACKAGES
try_processor armhf arm-linux-gnueabihf qemu-arm
try_processor s390x s390x-linux-gnu qemu-s390x
