#!/usr/bin/env bash
# What a screen reader meets in the main window: the list, its menu and the modes, through the accessibility bus.
#   read_aloud.sh BINARY
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/read_aloud.py" "$1" "$folder"
