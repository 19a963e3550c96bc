#!/usr/bin/env bash
# Scenes of a user's evening in the real program, and what is on the disk afterwards.
#   evening.sh BINARY [SCENE...]
# EVENING_FOLDER keeps the files and the pictures of scenes that failed.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
binary=$1
shift
# A dot in a folder's name would make the film of the command line a text.
folder=$(mktemp -d "${TMPDIR:-/tmp}/evening-XXXXXX")
trap 'rm -rf "$folder"' EXIT
"$root/scripts/sample_film.sh" "$folder/film.mp4"
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/evening.py" "$binary" "$folder/film.mp4" \
  "${EVENING_FOLDER:-$folder/scenes}" "$@"
