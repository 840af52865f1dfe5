#!/bin/sh
# Makes a film of a recording or of any other script, three times enlarged, 60 pictures a second, with its sounds where
# the film's format has sound.
set -eu
start=$PWD
cd "$(dirname "$0")/.."
. scripts/packages.sh

scale=3
width=240
height=320
rate=60
# A GIF counts in hundredths of a second, and players take one of them for a mistake.
gif_rate=50
sample_rate=44100

take_arguments "FILE OUT [FROM TO]" "Makes a film of a recording, or of the part between two moments in seconds. OUT ends in .mp4,
.webm or .gif." "$@"
[ $# -eq 2 ] || [ $# -eq 4 ] || bad_use "a recording and a film are wanted, and two moments or none"
cut=
sound_cut=
if [ $# -eq 4 ]; then
    for moment in "$3" "$4"; do
        case $moment in "" | *[!0-9.]* | *.*.*) bad_use "'$moment' is no number of seconds" ;; esac
    done
    cut="trim=$3:$4,setpts=PTS-STARTPTS,"
    sound_cut="-af atrim=$3:$4,asetpts=PTS-STARTPTS"
fi
script=$(realpath "$1") || bad_use "cannot read '$1'"
case $2 in
/*) film=$2 ;;
*) film=$start/$2 ;;
esac
case $film in
*.mp4) codecs="-c:v libx264 -crf 16 -preset slow -pix_fmt yuv420p -movflags +faststart -c:a aac -b:a 128k" ;;
*.webm) codecs="-c:v libvpx-vp9 -crf 24 -b:v 0 -row-mt 1 -c:a libopus" ;;
*.gif) codecs="" ;;
*) bad_use "'$2' ends in none of .mp4, .webm, .gif" ;;
esac

# shellcheck disable=SC2086 # one word a package
install_missing $FILM_PACKAGES
configure --preset release
build --preset release --target replay data

replay=$PWD/build/release/bin/replay
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# The recording's own frames, at the moments at which they were seen.
show() { "$replay" "$script" --snapshots "$work" "$@" || [ $? -eq 4 ] || fail "cannot play '$script'"; }

# When each sound began, in ms since the first frame, and the end: of a trace, whose lines hold tick and sounds.
sound_times()
{
    show --trace - | sed 's/^{"frame":[0-9]*,"tick":\([0-9]*\),.*"sounds":\[\([^]]*\)\].*/\1 \2/' |
        awk 'NR == 1 { first = $1 } { last = $1 } $2 != "" { print $1 - first } END { print last - first }'
}

# The sound track as plain samples: a sound goes on until the next one begins.
sound_track()
{
    ffmpeg -loglevel error -i "$replay_folder/explosion.wav" -f s16le -ac 1 -ar $sample_rate "$work/sound.raw"
    sound_bytes=$(stat -c %s sound.raw)
    played=0
    sounding=
    sound_times | while read -r ms; do
        samples=$((ms * sample_rate / 1000))
        end=$((2 * samples))
        bytes=$((end - played))
        heard=0
        if [ -n "$sounding" ]; then
            heard=$((bytes < sound_bytes ? bytes : sound_bytes))
            head -c $heard sound.raw
        fi
        head -c $((bytes - heard)) /dev/zero
        played=$end
        sounding=yes
    done
}

raw="-f rawvideo -pixel_format rgb24 -video_size ${width}x$height -framerate $rate"
enlarged="scale=iw*$scale:ih*$scale:flags=neighbor"
replay_folder=$(dirname "$replay")
echo "Filming ..."
# shellcheck disable=SC2086 # one word an option
if [ -z "$codecs" ]; then
    set -- -vf "${cut}fps=$gif_rate,$enlarged,split[a][b];[a]palettegen=stats_mode=diff[p];[b][p]paletteuse=dither=none:diff_mode=rectangle"
else
    sound_track >track.raw
    set -- -f s16le -ac 1 -ar $sample_rate -i track.raw -vf "$cut$enlarged" $sound_cut $codecs
fi
# What comes after the part is read, too, or the recording could not be played to its end.
# shellcheck disable=SC2086 # one word an option
show --frames - | { ffmpeg -loglevel error -y $raw -i - "$@" "$film" && cat >/dev/null; } ||
    fail "cannot make the film '$film'"
echo "The film: $film"
