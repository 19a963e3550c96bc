#!/usr/bin/env bash
# The real program in a real window, killed at random instants while captions are typed and captured by keys from
# outside: the next start restores the document, which lacks at most the last second.
#   kill_the_program.sh BINARY [ROUNDS] [SEED]
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
# Without a dot: the program takes what follows the first one for the extension of its start file.
folder=$(mktemp -d "${TMPDIR:-/tmp}/cuewright-kill-XXXXXX")
trap 'status=$?; if [ $status -eq 0 ]; then rm -rf "$folder"; else echo "what it left is in $folder"; fi' EXIT
"$root/scripts/sample_film.sh" "$folder/film.mp4"
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/kill_program.py" "$1" "$folder" "${2:-50}" "${3:-1}"
