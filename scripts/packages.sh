# What the scripts share: Debian packages and how they get them, building, arguments. To be sourced.
# shellcheck shell=sh disable=SC2034 # the lists are for the scripts that source this

# The last one draws the window's title bar on desktops that leave it to the program.
PLAY_PACKAGES="cmake g++ libasound2-dev libjpeg-dev libpng-dev libsdl2-dev libx11-dev ninja-build zlib1g-dev libdecor-0-plugin-1-cairo"
TEST_PACKAGES="$PLAY_PACKAGES imagemagick libbenchmark-dev libgtest-dev libxtst-dev nlohmann-json3-dev openbox wmctrl x11-utils xdotool xvfb"
ART_PACKAGES="g++ imagemagick libjpeg-dev libpng-dev librsvg2-bin povray povray-includes sox"
CROSS_PACKAGES="$TEST_PACKAGES g++-arm-linux-gnueabihf g++-s390x-linux-gnu qemu-user"
# The sanitizers of clang are a package of their own, and so is what finds the lines of their reports.
FUZZ_PACKAGES="$TEST_PACKAGES clang libclang-rt-dev llvm"
LIBRARY_PACKAGES="cmake dpkg-dev ninja-build"
WINDOWS_PACKAGES="$LIBRARY_PACKAGES g++-mingw-w64-x86-64-posix zip"
WINDOWS_TEST_PACKAGES="$WINDOWS_PACKAGES $TEST_PACKAGES unzip wine wine64"
WEB_PACKAGES="$LIBRARY_PACKAGES emscripten"
FILM_PACKAGES="$PLAY_PACKAGES ffmpeg"
WEB_TEST_PACKAGES="chromium nodejs"
DEBIAN_PACKAGES="build-essential $PLAY_PACKAGES debhelper dpkg-dev xz-utils"
DEBIAN_TEST_PACKAGES="$TEST_PACKAGES appstream desktop-file-utils lintian man-db"
CHECK_PACKAGES="$TEST_PACKAGES clang clang-format clang-tidy cppcheck shellcheck"

# Where Debian's package has it.
EMSCRIPTEN_TOOLCHAIN=/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake

fail()
{
    echo "${0##*/}: $*" >&2
    exit 1
}

# bad_use MESSAGE: one line, and the exit status of an argument that cannot be meant.
bad_use()
{
    echo "${0##*/}: $*; see $0 --help" >&2
    exit 2
}

# take_arguments NAMES WHAT ARGUMENT...: explains the script at --help, by the names of its arguments and what it does;
# takes no more arguments than there are names. Where these are options, "[--one | --other]", it takes one and sets $option.
take_arguments()
{
    names=$1
    help="usage: $0${names:+ $names}
$2"
    shift 2
    if [ "$*" = --help ]; then
        echo "$help"
        exit
    fi
    option=
    for argument; do
        case "$argument $names" in
        -*" [$argument]" | -*" [$argument | "* | -*" | $argument]") option=$argument names= ;;
        -* | *" " | *" [--"*) bad_use "unknown argument '$argument'" ;;
        *)
            names=${names#"${names%% *}"}
            names=${names# }
            ;;
        esac
    done
}

as_root()
{
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Asks for a password only where somebody can answer.
can_be_root()
{
    if [ "$(id -u)" -eq 0 ]; then
        return 0
    elif ! command -v sudo >/dev/null; then
        return 1
    elif (: </dev/tty) 2>/dev/null; then
        sudo true
    else
        sudo -n true 2>/dev/null
    fi
}

# install_missing PACKAGE...: installs those that are not there yet, and says so. On another system it only says what is
# needed: somebody may have installed it by hand, and where not, the build says what is missing.
install_missing()
{
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system; what these packages hold must be there: $*" >&2
        return 0
    fi
    missing=
    for package in "$@"; do
        case $(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) in
        *" installed") ;;
        *) missing="$missing $package" ;;
        esac
    done
    [ -n "$missing" ] || return 0
    echo "Missing Debian packages:$missing"
    can_be_root || fail "installing them takes root or sudo. As root, run:
    apt-get update
    apt-get install --no-install-recommends$missing"
    echo "Installing them ..."
    # A package list that cannot be had, somebody else's for instance, does no harm where the packages come all the same.
    as_root apt-get -qq update || true
    # shellcheck disable=SC2086 # one word a package
    as_root env DEBIAN_FRONTEND=noninteractive DEBCONF_NOWARNINGS=yes \
        apt-get -qq -y --no-install-recommends install $missing >/dev/null ||
        fail "cannot install the packages; is there a network?"
}

# configure OPTION...: by CMake. Warnings are errors where WARNINGS_AS_ERRORS is set, as in CI.
configure()
{
    cmake "$@" --log-level=WARNING ${WARNINGS_AS_ERRORS:+-DCMAKE_COMPILE_WARNING_AS_ERROR=ON} >/dev/null ||
        fail "cannot prepare the build"
}

# build OPTION...: what is configured, as CMake's own --build takes it.
build()
{
    echo "Building ..."
    cmake --build "$@" -- --quiet || fail "cannot build"
}

# project_version: as CMakeLists.txt says, where alone it stands.
project_version() { sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt; }
