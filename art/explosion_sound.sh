#!/bin/sh
# Makes the sound of an explosion out of noise and falling tones.
# explosion_sound.sh OUTPUT.WAV
set -eu
[ $# -eq 1 ] || { echo "usage: explosion_sound.sh OUTPUT.WAV" >&2; exit 1; }
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

# layer START LOUDNESS SECONDS SOUND EFFECT...: a sound that begins at START, sinks by 100 dB in SECONDS,
# evenly, and has LOUDNESS dB at its peak. -R starts the noise from the same seed: every run is alike.
count=0 rise=0.0005
layer() {
    start=$1 loudness=$2 seconds=$3 sound=$4
    shift 4
    count=$((count + 1))
    # shellcheck disable=SC2086
    sox -R -r 44100 -n -b 24 -c 1 "$dir/$(printf %02d "$count").wav" synth "$seconds" $sound gain -9 "$@" \
        fade l "$rise" "$seconds" "$seconds" gain -n "$loudness" pad "$start"
}

# The bang: a sharp edge, a knock that gives it weight on small speakers, the pressure wave.
layer 0 -10 0.30 whitenoise highpass 1200
layer 0 -9 0.16 'sine 480/85'
layer 0 -3 2.00 'sine 165/30'
layer 0 -5 1.40 whitenoise lowpass 1500 lowpass 2400
# What rolls on after it. Two slow beats that do not agree keep it from humming.
layer 0 -6 2.40 brownnoise lowpass 700 highpass 60 tremolo 7.3 25
layer 0 -6 3.80 brownnoise lowpass 260 highpass 32 tremolo 11.9 30 tremolo 5.1 25
# Pieces that break away, each a little softer at its edge than the bang.
rise=0.004
layer 0.075 -13 0.35 whitenoise lowpass 3200 highpass 200
layer 0.16 -16 0.40 pinknoise lowpass 2400 highpass 150
layer 0.23 -21 0.30 whitenoise lowpass 4200 highpass 500
layer 0.36 -22 0.55 pinknoise lowpass 1800 highpass 120
layer 0.52 -28 0.45 whitenoise lowpass 2600 highpass 300
layer 0.71 -31 0.55 pinknoise lowpass 1500 highpass 100
layer 0 -27 3.00 pinknoise highpass 400 lowpass 5000

sox -m "$dir"/[0-9]*.wav -b 24 "$dir/mix.wav"
sox -D "$dir/mix.wav" -b 16 "$1" highpass 26 gain -n -2 overdrive 8 0 gain -n -1.5 \
    trim 0 1.45 fade h 0.0005 1.45 0.6
