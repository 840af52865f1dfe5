#!/bin/sh
# Shows that the game is the same on another processor: builds logic, tests and `replay` for 32-bit ARM, runs the tests
# in an emulator, and compares the traces of all recorded games, byte for byte, with those of the release build.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

# The decoders' libraries and GoogleTest; SDL is not needed without a window.
arm_packages="libgtest-dev libjpeg62-turbo-dev libpng-dev nlohmann-json3-dev zlib1g-dev"
root=build/arm-root

# Fetches packages of the other architecture without making them part of this system.
fetch_libraries()
{
    [ ! -e $root/complete ] || return 0
    state=$PWD/build/arm-packages
    mkdir -p "$state/lists/partial" "$state/cache/archives/partial" "$state/deb" $root
    : > "$state/status"
    cat >"$state/apt.conf" <<CONF
APT::Architecture "armhf";
APT::Architectures "armhf";
APT::Sandbox::User "";
Dir::State "$state";
Dir::State::status "$state/status";
Dir::Cache "$state/cache";
CONF
    export APT_CONFIG="$state/apt.conf"
    echo "Fetching packages for armhf: $arm_packages"
    # shellcheck disable=SC2086 # one word a package
    # One of several package lists may be out of reach: what counts is that the packages come.
    (cd "$state/deb" && { apt-get -qq update 2>/dev/null || true; } && apt-get -qq download $arm_packages) ||
        fail "cannot fetch Debian's packages for armhf"
    unset APT_CONFIG
    for package in "$state"/deb/*.deb; do
        dpkg -x "$package" $root
    done
    touch $root/complete
}

trace() # trace BUILD SCRIPT FILE [EMULATOR]
{
    ${4:-} "build/$1/bin/replay" "$2" --data data --trace "$3" --snapshots build/arm-traces/snapshots 2>/dev/null ||
        echo "exit code $?" >>"$3"
}

# shellcheck disable=SC2086 # one word a package
install_missing $ARM_PACKAGES
fetch_libraries
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release --target replay -- --quiet
cmake --preset arm --log-level=WARNING >/dev/null
cmake --build --preset arm -- --quiet
# Files that are damaged in every way take long in the emulator, and the decoders are not ours.
ctest --preset arm --no-tests=error --parallel "$(nproc)" --exclude-regex BadData

mkdir -p build/arm-traces
count=0
for script in tests/replays/*.txt replay/demo.txt; do
    name=$(basename "$script" .txt)
    (cd build/arm-traces && rm -f "$name".*)
    trace release "$script" "build/arm-traces/$name.here"
    trace arm "$script" "build/arm-traces/$name.arm" qemu-arm
    cmp "build/arm-traces/$name.here" "build/arm-traces/$name.arm" || fail "$script: ARM shows something else"
    count=$((count + 1))
done
echo "$count recorded games are the same on ARM, byte for byte"
