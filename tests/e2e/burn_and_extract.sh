#!/usr/bin/env bash
# Burns a subtitle into a film and takes the sound out of it, through both wizards of the real program.
#   burn_and_extract.sh BINARY
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/burn_and_extract.py" "$1" "$folder"
