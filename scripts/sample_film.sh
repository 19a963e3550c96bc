#!/usr/bin/env bash
# Makes the sample film: 20 seconds with a running clock and a tone.
#   scripts/sample_film.sh FILE [RATE]
set -eu
ffmpeg -y -nostdin -loglevel error \
  -f lavfi -i "testsrc2=size=640x360:rate=${2:-25}:duration=20" \
  -f lavfi -i "sine=frequency=440:sample_rate=44100:duration=20" \
  -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac -shortest "$1"
