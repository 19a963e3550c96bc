#!/usr/bin/env bash
# Every menu of the real program in a real window, walked by the keyboard alone.
#   walk_menus.sh BINARY
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/walk_menus.py" "$1" "$folder"
