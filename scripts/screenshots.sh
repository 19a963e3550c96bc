#!/usr/bin/env bash
# Pictures of every window of the running program, a sheet a language and colour scheme.
#   scripts/screenshots.sh BINARY FOLDER [LANGUAGE ...]      (default: ENGLISH ARABIC)
set -eu
cd "$(dirname "$0")/.."
binary=$(realpath "$1")
folder=$2
shift 2
[ $# -gt 0 ] || set -- ENGLISH ARABIC
mkdir -p "$folder"
work=/tmp/films
mkdir -p "$work"
trap 'rm -rf "$work"' EXIT
scripts/sample_film.sh "$work/good_evening.mp4"
cp samples/good_evening.srt "$work/" 2>/dev/null ||
  awk '{ sub(/\r$/, "") } NF { n++; s = n * 3; printf "%d\r\n00:00:%02d,000 --> 00:00:%02d,200\r\n%s\r\n\r\n", n, s, s + 2, $0 }' \
    samples/good_evening.txt >"$work/good_evening.srt"
for language in "$@"; do
  for scheme in light dark; do
    name=$(echo "$language" | tr '[:upper:]' '[:lower:]')
    SCREEN=1280x900 scripts/virtual_display.sh /usr/bin/python3 tests/e2e/screenshots.py "$binary" "$language" "$scheme" \
      "$work/good_evening.mp4" "$work/good_evening.srt" "$folder/windows_${name}_$scheme.png"
  done
done
