#!/bin/sh
# Builds everything and runs every test, on Debian 12 from nothing. Usage: ./test.sh [PRESET]
set -eu
cd "$(dirname "$0")"
. scripts/packages.sh

preset=${1:-release}
# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES
cmake --preset "$preset" --log-level=WARNING >/dev/null
cmake --build --preset "$preset" -- --quiet
ctest --preset "$preset" --no-tests=error --parallel "$(nproc)"
