#!/bin/sh
# Lets each fuzzer try inputs for some seconds, under the sanitizers.
# Inputs of interest stay in build/fuzz/found, and the next run begins with them. One that shows a fault is named;
# once the fault is mended it belongs into fuzz/corpus, whose inputs are tried with the tests.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh

take_arguments SECONDS "Lets each fuzzer try inputs for so long, under the sanitizers." "$@"
seconds=${1:-}
case $seconds in
"" | *[!0-9]*) bad_use "'$seconds' is no number of seconds" ;;
esac

sanitizers="-fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize=vptr -fno-sanitize-recover=all"
# shellcheck disable=SC2086 # one word a package
install_missing $FUZZ_PACKAGES
configure -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DBUILD_TESTING=ON -DFUZZERS=ON \
    -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS="-O1 -fno-omit-frame-pointer -Wno-unknown-warning-option $sanitizers"
build build/fuzz --target picture_fuzzer script_fuzzer

# fuzz NAME FOLDER...: tries what is in the folders, and what comes of it, until the time is over.
fuzz()
{
    name=$1
    shift
    mkdir -p "build/fuzz/found/$name"
    echo "== $name"
    # Inputs that take a minute or two gigabytes are faults, too.
    (cd build/fuzz && exec "./bin/${name}_fuzzer" -max_total_time="$seconds" -timeout=60 -rss_limit_mb=2048 \
        -dict="../../fuzz/$name.dict" -artifact_prefix="$name-" -print_final_stats=1 -verbosity=0 \
        "found/$name" "$@") || fail "${name}_fuzzer found a fault; its input is build/fuzz/$name-*"
}

fuzz picture ../../fuzz/corpus/pictures
fuzz script ../../fuzz/corpus/scripts ../../tests/replays
