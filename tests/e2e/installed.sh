#!/usr/bin/env bash
# The program as it is installed: into a prefix of its own, which is moved and then used, so that nothing of the build
# folder can take part.
#   installed.sh BUILD_FOLDER
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d "${TMPDIR:-/tmp}/installed-XXXXXX")
trap 'rm -rf "$folder"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

cmake --install "$1" --prefix "$folder/first" >"$folder/install.log" || { cat "$folder/install.log"; fail "install"; }
mv "$folder/first" "$folder/prefix"
prefix=$folder/prefix
for file in bin/cuewright bin/cuewright-batch bin/vdrun share/man/man1/cuewright.1 share/man/man1/cuewright-batch.1 \
  share/man/man1/vdrun.1 share/applications/tessaly-cuewright.desktop \
  share/metainfo/tessaly-cuewright.metainfo.xml share/icons/hicolor/scalable/apps/tessaly-cuewright.svg \
  share/icons/hicolor/48x48/apps/tessaly-cuewright.png share/icons/hicolor/256x256/apps/tessaly-cuewright.png \
  share/tessaly-cuewright/formats.dat share/tessaly-cuewright/languages/spanish.txt \
  share/tessaly-cuewright/vdrun/vdrun; do
  [ -f "$prefix/$file" ] || fail "$file is not installed"
done
desktop-file-validate "$prefix/share/applications/tessaly-cuewright.desktop"
appstreamcli validate --no-net "$prefix/share/metainfo/tessaly-cuewright.metainfo.xml"

cd "$folder"
export PATH="$prefix/bin:$PATH" XDG_CONFIG_HOME="$folder/config" XDG_STATE_HOME="$folder/state" \
  XDG_CACHE_HOME="$folder/cache" XDG_DATA_HOME="$folder/data" LC_ALL=C.UTF-8
[ "$(cuewright-batch formats | wc -l)" -ge 76 ] || fail "cuewright-batch doesn't list its formats"
printf '1\r\n00:00:01,000 --> 00:00:02,000\r\nHello\r\n\r\n' >a.srt
cuewright-batch convert a.srt --to SAMI --out a.smi
grep -q Hello a.smi || fail "nothing was converted"
vdrun --version >/dev/null || fail "vdrun doesn't start"
"$root/scripts/virtual_display.sh" /usr/bin/python3 "$root/tests/e2e/use_installed.py" "$prefix" "$folder"
echo "the installed program works"
