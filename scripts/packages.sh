# Debian packages that the scripts need, and how they get them. To be sourced.
# shellcheck shell=sh disable=SC2034 # the lists are for the scripts that source this

PLAY_PACKAGES="cmake g++ libasound2-dev libjpeg-dev libpng-dev libsdl2-dev libx11-dev ninja-build zlib1g-dev"
TEST_PACKAGES="$PLAY_PACKAGES imagemagick libbenchmark-dev libgtest-dev libxtst-dev nlohmann-json3-dev openbox wmctrl x11-utils xdotool xvfb"
ART_PACKAGES="g++ imagemagick libjpeg-dev libpng-dev librsvg2-bin povray povray-includes sox"
CROSS_PACKAGES="$TEST_PACKAGES g++-arm-linux-gnueabihf g++-s390x-linux-gnu qemu-user"
CHECK_PACKAGES="$TEST_PACKAGES clang clang-format clang-tidy cppcheck"

fail()
{
    echo "${0##*/}: $*" >&2
    exit 1
}

# as_root COMMAND...: runs it as root, asking for a password only where somebody can answer.
as_root()
{
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
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
    echo "Installing Debian packages:$missing"
    as_root true 2>/dev/null || fail "neither root nor able to use sudo; as root run: apt-get install$missing"
    as_root apt-get -qq update || fail "cannot fetch Debian's package lists; is there a network?"
    # shellcheck disable=SC2086 # one word a package
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends install $missing \
        >/dev/null || fail "cannot install:$missing"
}
