#!/bin/sh
# Makes everything that is given to players, in build/dist, from a clean checkout on Debian 12. The same commit gives the same
# files, byte for byte, wherever it is checked out.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
. scripts/archives.sh
take_arguments "" "Makes everything that is given to players, in build/dist: the Debian package, the archives for Linux and
Windows, the folder of the page, and their checksums." "$@"

dist=$PWD/build/dist

changes=$(git status --porcelain) || fail "this is no checkout"
[ -z "$changes" ] || fail "this is no clean checkout:
$changes"

version=$(project_version)
SOURCE_DATE_EPOCH=$(source_time)
export SOURCE_DATE_EPOCH LC_ALL=C.UTF-8 TZ=UTC
umask 022

rm -rf build/windows build/web-build build/web "$dist"
scripts/package.sh
scripts/windows.sh
scripts/web.sh
mkdir -p "$dist"
cp build/package/mygame_*.deb "$dist"
for archive in build/package/mygame-*.tar.xz build/windows/mygame-*.zip; do
    name=${archive##*/}
    cp "$archive" "$dist/${name%%.*}-$version.${name#*.}"
done
cp -r build/web build/mygame-web
zip_folder build/mygame-web "$dist/mygame-web-$version.zip"
rm -r build/mygame-web
(cd "$dist" && sha256sum -- * >../sums && mv ../sums SHA256SUMS)
echo "What players get, of version $version, is in $dist:"
ls -l "$dist"
