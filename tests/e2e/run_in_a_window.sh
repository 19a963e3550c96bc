#!/usr/bin/env bash
# The window that the runner opens where it has no terminal.
#   run_in_a_window.sh RUNNER
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/run_in_a_window.py" "$1" "$folder"
