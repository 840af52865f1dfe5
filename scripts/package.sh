#!/bin/sh
# Makes what Linux systems are given: the Debian package, by Debian's own tools, and the archive to unpack anywhere.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh
. scripts/archives.sh

# What the validators say is read in it.
export LC_ALL=C.UTF-8

take_arguments "[--test]" "Makes build/package/mygame_VERSION_ARCHITECTURE.deb and build/package/mygame-linux-PROCESSOR.tar.xz. With --test everything
in the package is then validated, and the game from it and from the archive is played." "$@"

place=$PWD/build/package
version=$(project_version)
deb=$place/mygame_${version}_$(dpkg --print-architecture).deb
unpacked=$place/unpacked
folder=$place/mygame-linux-$(uname -m)
archive=$folder.tar.xz

# What the packages hold that README.txt names, and what every system has.
libraries="libSDL2-2.0.so.0 libX11.so.6 libasound.so.2 libjpeg.so.62 libpng16.so.16 libstdc++.so.6
    libc.so.6 libgcc_s.so.1 libm.so.6 libz.so.1"

# The sources as they are here, with Debian's folder where Debian's tools look for it. Those tools leave the name of the folder
# in what they build unless it is a plain one, which nobody can know of the project's.
stage()
{
    building=$(mktemp -d)
    trap 'rm -rf "$building"' EXIT
    trap exit HUP INT TERM
    source=$building/mygame-$version
    mkdir "$source"
    { git ls-files -co --exclude-standard -z 2>/dev/null || find . \( -path ./build -o -path ./.git \) -prune -o -type f -print0; } |
        tar -c --null -T - | tar -x -C "$source"
    mv "$source/packaging/debian" "$source/debian"
    settle "$source"
    debian_version=$(cd "$source" && dpkg-parsechangelog -S Version)
    [ "$debian_version" = "$version" ] || fail "packaging/debian/changelog begins with $debian_version, not $version"
}

# All of what Debian's archive would get.
build_package()
{
    echo "Building the Debian package ..."
    rm -rf "$place"
    mkdir -p "$place"
    time=$(source_time)
    (cd "$source" && SOURCE_DATE_EPOCH=$time dpkg-buildpackage -us -uc -jauto) >"$place/build.log" 2>&1 ||
        { tail -n 30 "$place/build.log" >&2; fail "cannot build the package; all that was said: $place/build.log"; }
    mv "$building"/mygame*_"$version"* "$place"
}

# needs_only_what_is_named PROGRAM
needs_only_what_is_named()
{
    for library in $(objdump -p "$1" | sed -n 's/^ *NEEDED *//p'); do
        case " $(echo "$libraries" | tr -s '\n ' '  ') " in
        *" $library "*) ;;
        *) fail "$1 needs $library, which packaging/linux/README.txt does not name" ;;
        esac
    done
}

# From what the package holds: the programs find what lies beside them first.
build_archive()
{
    dpkg-deb -x "$deb" "$unpacked"
    mkdir "$folder"
    cp "$unpacked"/usr/share/games/mygame/* "$folder"
    cp "$unpacked/usr/games/mygame" "$folder/mygame"
    cp "$unpacked/usr/games/mygame-replay" "$folder/replay"
    cp packaging/linux/README.txt "$folder"
    needs_only_what_is_named "$folder/mygame"
    needs_only_what_is_named "$folder/replay"
    tar_folder "$folder" "$archive"
}

# silent WHAT COMMAND...: succeeds and says nothing.
silent()
{
    what=$1
    shift
    said=$("$@" 2>&1) || fail "$what: $said"
    [ -z "$said" ] || fail "$what: $said"
}

# What it says when nothing is wrong is not counted.
check_metainfo() { appstreamcli validate --no-color --pedantic --no-net "$@" | sed '/^✔ Validation was successful\.$/d'; }

check_manual() { LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$1" >/dev/null; }

validate()
{
    as_root=
    [ "$(id -u)" -ne 0 ] || as_root=--allow-root
    # shellcheck disable=SC2086 # no word or one
    silent "lintian" lintian $as_root -i -E --pedantic "$place"/mygame_"$version"_*.changes
    silent "the menu entry" desktop-file-validate "$unpacked"/usr/share/applications/*.desktop
    silent "what shops show" check_metainfo "$unpacked"/usr/share/metainfo/*.xml
    for page in "$unpacked"/usr/share/man/man6/*; do
        silent "$page" check_manual "$page"
    done
}

# The package's own tests, with what it holds, though not installed.
play_package()
{
    (
        PATH=$unpacked/usr/games:$PATH
        packaging/debian/tests/replays
        packaging/debian/tests/window
    )
}

play_archive()
{
    elsewhere=$place/elsewhere
    mkdir "$elsewhere"
    tar -x -C "$elsewhere" -f "$archive"
    packaging/debian/tests/replays "$elsewhere/${folder##*/}/replay"
}

# shellcheck disable=SC2086 # one word a package
install_missing $DEBIAN_PACKAGES
stage
build_package
build_archive
echo "The Debian package: $deb"
echo "The archive for Linux: $archive"

[ -n "$option" ] || exit 0
# shellcheck disable=SC2086 # one word a package
install_missing $DEBIAN_TEST_PACKAGES
validate
play_package
play_archive
