#!/bin/sh
# Makes the sound of an explosion out of noise and a falling tone.
# explosion.sh OUTPUT.WAV
set -eu
[ $# -eq 1 ] || { echo "usage: explosion.sh OUTPUT.WAV" >&2; exit 1; }
command -v sox >/dev/null || { echo "explosion.sh: sox is missing (package sox)" >&2; exit 1; }
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

# layer NAME SECONDS SOUND EFFECT...: a sound that dies away evenly in decibels.
# -R starts the noise from the same seed each time, so that every run is alike.
layer() {
    name=$1 seconds=$2 sound=$3
    shift 3
    # shellcheck disable=SC2086
    sox -R -r 44100 -n -b 24 -c 1 "$dir/$name.wav" synth "$seconds" $sound "$@" \
        fade l 0.0006 "$seconds" "$seconds"
}

layer crack 0.22 whitenoise highpass 1400 norm -3
layer blast 0.90 whitenoise lowpass 1600 lowpass 2600 norm -3
layer rumble 1.40 brownnoise lowpass 420 highpass 35 tremolo 13 45 norm -3
layer debris 1.30 pinknoise highpass 700 tremolo 23 80 norm -3
layer thump 1.10 'sine 150/32' norm -3
layer knock 0.12 'sine 420/80' norm -3

sox -m -v 0.55 "$dir/crack.wav" -v 0.95 "$dir/blast.wav" -v 1.0 "$dir/rumble.wav" \
    -v 0.16 "$dir/debris.wav" -v 0.95 "$dir/thump.wav" -v 0.5 "$dir/knock.wav" \
    -b 24 "$dir/mix.wav" gain -12
sox -D "$dir/mix.wav" -b 16 "$1" highpass 28 norm -1 overdrive 7 0 gain -n -1.5 fade h 0.0006 1.35 0.35
