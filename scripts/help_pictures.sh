#!/usr/bin/env bash
# Takes the pictures of the help anew from the running program, for each language that has help.
#   scripts/help_pictures.sh BINARY
set -eu
cd "$(dirname "$0")/.."
binary=$(realpath "$1")
work=/tmp/films
mkdir -p "$work"
trap 'rm -rf "$work"' EXIT
# A calm picture, and a sound that swells where the captions stand.
ffmpeg -v error -y -f lavfi -i "gradients=s=640x360:r=25:d=30:c0=0x203a5f:c1=0xd98e4a:nb_colors=2:seed=7:speed=0.002" \
  -f lavfi -i "anoisesrc=d=30:c=pink:a=0.9:seed=5" \
  -af "volume='if(gt(t,3)*lt(mod(t,3),2.2),0.25+0.75*abs(sin(5*t))*abs(sin(17*t)),0.03)':eval=frame,asetnsamples=480" \
  -c:v libx264 -preset veryfast -c:a aac -shortest "$work/good_evening.mp4"
awk '{ sub(/\r$/, "") } NF { n++; s = n * 3; printf "%d\r\n00:00:%02d,000 --> 00:00:%02d,200\r\n%s\r\n\r\n", n, s, s + 2, $0 }' \
  samples/good_evening.txt >"$work/good_evening.srt"
for folder in resources/help/*/; do
  language=$(basename "$folder" | tr '[:lower:]' '[:upper:]')
  mkdir -p "${folder}pictures"
  SCREEN=1280x900 scripts/virtual_display.sh /usr/bin/python3 tests/e2e/screenshots.py "$binary" "$language" light \
    "$work/good_evening.mp4" "$work/good_evening.srt" "${folder}pictures"
done
