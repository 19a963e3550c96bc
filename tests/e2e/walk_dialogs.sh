#!/usr/bin/env bash
# The dialogs of the real program in a real window, walked by the keyboard alone.
#   walk_dialogs.sh BINARY
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/walk_dialogs.py" "$1" "$folder"
