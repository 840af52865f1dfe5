# Sourced by scripts that run desktop_demo on an X server of their own: starts the server and offers
# startDemo, stopDemo and a few more. Everything ends with the script.
# shellcheck shell=bash disable=SC2034

script=$(basename "$0")
programs=$(realpath "${1:-$(dirname "$0")/../build/release/bin}")
[ -x "$programs/desktop_demo" ] || {
    echo "$script: $programs/desktop_demo is missing: build the project first" >&2
    exit 1
}

# Copies of the program find each other by a name in the network's namespace. In one of its own the script
# neither meets a game that is being played nor another run of itself.
if [ -z "${OWN_NAMESPACE:-}" ] && unshare --map-root-user --net true 2>/dev/null; then
    OWN_NAMESPACE=1 exec unshare --map-root-user --net "$0" "$@"
fi

fail() {
    echo "$script: $1" >&2
    exit 1
}

needTools() {
    local tool
    for tool; do
        command -v "$tool" >/dev/null || fail "$tool is missing (packages xvfb, xdotool, imagemagick, openbox)"
    done
}

# An X server's answer for "no window", which xdotool can give the keyboard to.
noWindow=1
patienceSeconds=20
demo=
server=
folder=$(mktemp -d)

endSession() {
    [ -z "$demo" ] || kill -KILL "$demo"
    [ -z "$server" ] || kill "$server"
    wait
    rm -rf "$folder"
}
trap 'endSession 2>/dev/null' EXIT

startServer() {
    needTools Xvfb xdotool
    cd "$folder" || exit 1
    mkfifo display output
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>display 2>/dev/null &
    server=$!
    read -r number <display
    export DISPLAY=:$number
}

# Starts the program, or the one given, and waits for its first picture. Sets `demo`, its process, `window`,
# and `pictureMs`, the time that took. What it writes is read from descriptor 4.
startDemo() {
    local begin=${EPOCHREALTIME/./}
    "${1:-$programs/desktop_demo}" >output 2>errors &
    demo=$!
    exec 4<output
    read -r -t $patienceSeconds _ <&4 || fail "no first picture; does another copy run?"
    pictureMs=$(((${EPOCHREALTIME/./} - begin) / 1000))
    window=$(xdotool search --pid "$demo" --name '^MyGame$' | tail -1)
}

# Waits for the end of the program and sets `result`, its exit code.
awaitEnd() { # what
    local ended
    read -r -t $patienceSeconds ended <&4
    [ $? -eq 1 ] || fail "$1: the program did not end, or wrote '$ended'"
    exec 4<&-
    wait "$demo"
    result=$?
    demo=
}

stopDemo() {
    kill "$demo"
    awaitEnd "end by a signal"
}

wakeUps() { cat /proc/"$demo"/task/*/status | awk '/^voluntary_ctxt/ { sum += $2 } END { print sum }'; }
