#!/bin/sh
# Lets each fuzzer try inputs for some seconds, under the sanitizers. Usage: fuzz/run.sh SECONDS
# What it found stays in build/fuzz, so that the next run goes on from there; a fault is printed with the input's file.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

seconds=${1:?usage: fuzz/run.sh SECONDS}
sanitizers=address,undefined,float-cast-overflow
# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES clang
cmake -S . -B build/fuzz -G Ninja --log-level=WARNING -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DFUZZERS=ON \
    -DCMAKE_CXX_FLAGS="-O1 -fno-omit-frame-pointer -Wno-unknown-warning-option -fsanitize=fuzzer-no-link,$sanitizers -fno-sanitize=vptr -fno-sanitize-recover=all" \
    >/dev/null
cmake --build build/fuzz --target picture_fuzzer script_fuzzer -- --quiet

# fuzz NAME FOLDER...: tries what is in the folders, and what comes of it, until the time is over.
fuzz()
{
    name=$1
    shift
    found=build/fuzz/found/$name
    mkdir -p "$found"
    echo "== $name"
    # Inputs that take a minute or two gigabytes are faults, too.
    (cd build/fuzz && exec "./bin/${name}_fuzzer" -max_total_time="$seconds" -timeout=60 -rss_limit_mb=2048 \
        -dict="../../fuzz/$name.dict" -artifact_prefix="$name-" -print_final_stats=1 -verbosity=0 \
        "found/$name" "$@") || fail "${name}_fuzzer found a fault; its input is build/fuzz/$name-*"
}

fuzz picture ../../fuzz/corpus/pictures ../../tests/corpus/pictures
fuzz script ../../fuzz/corpus/scripts ../../tests/corpus/scripts ../../tests/replays
