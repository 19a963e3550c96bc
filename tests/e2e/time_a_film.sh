#!/usr/bin/env bash
# The real program in a real window, with the real player and a film made at this moment: eight lines are timed by a
# key held from outside, and the saved file is compared with the film's time at each press and release.
#   time_a_film.sh BINARY
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/sample_film.sh" "$folder/film.mp4"
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/time_film.py" "$1" \
  "$root/samples/good_evening.txt" "$folder/film.mp4" "$folder/out"
