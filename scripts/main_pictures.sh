#!/usr/bin/env bash
# Pictures of the main window at work, on screens of three sizes, in three languages, light and dark.
#   scripts/main_pictures.sh BINARY FOLDER
set -eu
cd "$(dirname "$0")/.."
binary=$(realpath "$1")
mkdir -p "$2"
# The last has letters of twice the size.
for size in "1366x768 1" "1920x1080 1" "3840x2160 2"; do
  # shellcheck disable=SC2086
  set -- "$1" "$2" $size
  SCREEN=$3 scripts/virtual_display.sh /usr/bin/python3 tests/e2e/main_pictures.py "$binary" "$2" "$4" ENGLISH ARABIC JAPANESE
done
