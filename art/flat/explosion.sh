#!/bin/sh
# Makes the sound of an explosion out of noise and falling tones.
# explosion.sh OUTPUT.WAV
set -eu
[ $# -eq 1 ] || { echo "usage: explosion.sh OUTPUT.WAV" >&2; exit 1; }
command -v sox >/dev/null || { echo "explosion.sh: sox is missing (package sox)" >&2; exit 1; }
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

# layer NAME LOUDNESS SECONDS SOUND EFFECT...: a sound that sinks by 100 dB in SECONDS, evenly, and is
# brought to LOUDNESS dB at its peak. -R starts the noise from the same seed, so that every run is alike.
layer() {
    name=$1 loudness=$2 seconds=$3 sound=$4
    shift 4
    # shellcheck disable=SC2086
    sox -R -r 44100 -n -b 24 -c 1 "$dir/$name.wav" synth "$seconds" $sound gain -9 "$@" \
        fade l 0.0005 "$seconds" "$seconds" gain -n "$loudness"
}

layer crack -11 0.30 whitenoise highpass 1200
layer blast -5 1.30 whitenoise lowpass 1500 lowpass 2400
layer body -6 1.90 brownnoise lowpass 700 highpass 60
layer rumble -6 2.60 brownnoise lowpass 240 highpass 32 tremolo 11 40
layer debris -25 2.20 pinknoise highpass 500 lowpass 6000 tremolo 17 70
layer thump -3 1.80 'sine 170/30'
layer knock -9 0.14 'sine 480/90'

sox -m "$dir/crack.wav" "$dir/blast.wav" "$dir/body.wav" "$dir/rumble.wav" "$dir/debris.wav" \
    "$dir/thump.wav" "$dir/knock.wav" -b 24 "$dir/mix.wav"
sox -D "$dir/mix.wav" -b 16 "$1" highpass 26 gain -n -2 overdrive 9 0 gain -n -1.5 \
    trim 0 1.4 fade h 0.0005 1.4 0.5
