#!/usr/bin/env bash
# Installs what lacks, builds the program and starts it.
#   ./run.sh [FILE]    opens FILE (a subtitle, a text or a film)
#   ./run.sh --demo    times the sample film in a virtual display and names the folder with the results
set -eu
cd "$(dirname "$0")"
. scripts/packages.sh

case "${1:-}" in
  -h | --help)
    sed -n '2,4s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
esac
[ $# -le 1 ] || fail "one file at most: ./run.sh [FILE | --demo]"

demo=0
file=""
if [ "${1:-}" = "--demo" ]; then
  demo=1
elif [ $# -eq 1 ]; then
  [ -e "$OLDPWD/$1" ] && file=$(realpath -- "$OLDPWD/$1") || file=$1
  [ -e "$file" ] || fail "$1: there is no such file"
fi
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ "$demo" -eq 0 ]; then
  say "there is no display here (DISPLAY and WAYLAND_DISPLAY are unset)"
  say "so the program times the sample film in a virtual one; on a desktop, ./run.sh opens its window"
  demo=1
fi

# shellcheck disable=SC2086
need_packages $packages_build $packages_run
# shellcheck disable=SC2086
[ "$demo" -eq 0 ] || need_packages $packages_display
build_preset release cuewright cuewright-batch

if [ "$demo" -eq 1 ]; then
  exec scripts/demo.sh build/release/bin/cuewright
fi
say "starting the program"
exec build/release/bin/cuewright ${file:+"$file"}
