#!/bin/sh
# Builds everything and runs every test, on Debian 12 or 13 from nothing.
set -eu
cd "$(dirname "$(readlink -f "$0")")"
. scripts/packages.sh

presets=$(sed -n 's/.*"name": "\([^"]*\)", "configurePreset".*"output".*/\1/p' CMakePresets.json | paste -sd ' ')
take_arguments "[PRESET]" "Installs what is missing, builds everything and runs every test, with one of the presets
$presets; with release where none is given." "$@"
preset=${1:-release}
case " $presets " in
*" $preset "*) ;;
*) bad_use "unknown preset '$preset'" ;;
esac

# shellcheck disable=SC2086 # one word a package
install_missing $TEST_PACKAGES
configure --preset "$preset"
build --preset "$preset"
ctest --preset "$preset" --no-tests=error --parallel "$(nproc)"
