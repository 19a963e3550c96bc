#!/usr/bin/env bash
# Shows the main job in a virtual display: the real program times the sample film and text.
#   scripts/demo.sh BINARY
set -eu
cd "$(dirname "$0")/.."
binary=$1
folder=demo-output
mkdir -p "$folder"
echo "demo: making the sample film"
scripts/sample_film.sh "$folder/good_evening.mp4"
echo "demo: the program opens the text and the film; a key is held from outside for every line (25 s)"
scripts/virtual_display.sh /usr/bin/python3 tests/e2e/time_film.py "$binary" samples/good_evening.txt \
  "$folder/good_evening.mp4" "$folder" 2>"$folder/messages.log" || {
  cat "$folder/messages.log" >&2
  exit 1
}
echo "demo: the subtitle and the screenshots are in $PWD/$folder:"
ls "$folder"
