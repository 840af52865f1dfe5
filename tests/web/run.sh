#!/bin/sh
# Plays the page that scripts/web.sh built in a browser that nobody sees. With PICTURES set to a folder, keeps screenshots.
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
. scripts/packages.sh

take_arguments "[PROGRAM]" "Plays the page in a browser that nobody sees. With a program for node, runs that with the browser." "$@"

work=build/web-test

# shellcheck disable=SC2086 # one word a package
install_missing $WEB_TEST_PACKAGES
# Whoever has another node than Debian's has npm with it.
command -v npm >/dev/null || install_missing npm

mkdir -p "$work"
if ! cmp -s tests/web/package-lock.json "$work/node_modules/installed.json"; then
    echo "Installing what drives the browser ..."
    cp tests/web/package.json tests/web/package-lock.json "$work"
    (cd "$work" && npm ci --silent --ignore-scripts --no-audit --no-fund) || fail "cannot install it; is there a network?"
    cp tests/web/package-lock.json "$work/node_modules/installed.json"
fi

# Profiles of browsers, and whatever else they leave.
TMPDIR=$(mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
trap exit HUP INT TERM
NODE_PATH=$PWD/$work/node_modules
export NODE_PATH
case ${1:-} in
'') node --test-reporter tap --test tests/web/page_test.js tests/web/recording_test.js ;;
*) node "$1" ;;
esac
