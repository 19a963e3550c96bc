#!/usr/bin/env bash
# Start to a window that can be used, empty and with a SubRip file of 32,000 captions, beside other editors that are
# installed and a bare window of the toolkit, each in the same virtual display.
# usage: bench/startup/run.sh [BUILD_FOLDER] [ROUNDS]   (default: build/release, 5)
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:-$root/build/release}
rounds=${2:-5}
cmake --build "$build" --target cuewright cuewright_resources startup_watch startup_floor >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
awk 'BEGIN { for (i = 1; i <= 32000; ++i) {
  s = i * 2; printf "%d\r\n%02d:%02d:%02d,100 --> %02d:%02d:%02d,900\r\nCaption number %d of them all\r\n", i,
    s / 3600, s / 60 % 60, s % 60, (s + 1) / 3600, (s + 1) / 60 % 60, (s + 1) % 60, i;
  if (i % 2) printf "with a second line\r\n"; printf "\r\n" } }' >"$work/many.srt"

# Settings of their own, in which no program asks anything at its start.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
mkdir -p "$XDG_CONFIG_HOME/tessaly-cuewright" "$HOME/.aegisub-3.2" "$XDG_DATA_HOME"
printf '[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nWindowState=0\nWindowWidth=1000\nWindowHeight=700\n' \
  >"$XDG_CONFIG_HOME/tessaly-cuewright/settings.ini"
printf '{"App":{"First Start":false,"Auto":{"Check For Updates":false}}}\n' >"$HOME/.aegisub-3.2/config.json"

# Debian's build of one peer stops at a check of its toolkit that it fails itself.
export WXSUPPRESS_SIZER_FLAGS_CHECK=1

peers() {
  local file=$1
  for peer in aegisub-3.2 aegisub subtitlecomposer gaupol; do
    command -v "$peer" >/dev/null || continue
    # It asks first whether a file of this size is meant.
    [ "$peer" = gaupol ] && [ -n "$file" ] && continue
    case " ${seen:-} " in *" ${peer%%-*} "*) continue ;; esac
    seen="${seen:-} ${peer%%-*}"
    commands+=(-- "${peer%%-*}" "$peer" ${file:+"$file"})
  done
}
for file in "" "$work/many.srt"; do
  seen=""
  commands=(cuewright "$build/bin/cuewright" ${file:+"$file"} -- "bare window" "$build/bin/startup_floor" ${file:+"$file"})
  peers "$file"
  echo "${file:+with 32,000 captions}${file:-empty}" | sed "s|$work.*||"
  "$root/scripts/virtual_display.sh" "$build/bin/startup_watch" "$rounds" "${commands[@]}" 2>/dev/null
done
