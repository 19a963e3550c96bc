#!/bin/sh
# Builds the fuzzers and runs each for a time, as many at once as there are processors, with the files of every format as
# seeds.
# usage: fuzz/run.sh [SECONDS] [NAME...]   (default: 60, all of them)
# What they find on the way stays in build/fuzz/corpus; a failing input is left in build/fuzz.
# FUZZ_SEED: a number other than 0 begins each time with the same inputs.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/fuzz
seeds=$build/seeds

# One fuzzer: NAME SECONDS.
run_one() {
  corpus=$build/corpus/$1
  mkdir -p "$corpus"
  case $1 in
    source) from=$seeds/source longest=16384 ;;
    catalogue) from=$seeds/catalogue longest=65536 ;;
    wave | sound) from=$seeds/wave longest=65536 ;;
    house_rules) from=$root/resources/profiles longest=4096 ;;
    registry) from=$seeds/registry longest=4096 ;;
    script) from=$seeds/script longest=8192 ;;
    update) from=$seeds/update longest=4096 ;;
    *) from=$root/tests/data/formats longest=16384 ;;
  esac
  "$build/bin/fuzz_$1" "$corpus" "$from" -dict="$root/fuzz/dictionaries/$1.dict" -max_total_time="$2" \
    -seed="${FUZZ_SEED:-0}" -max_len="$longest" -timeout=20 -rss_limit_mb=2048 -artifact_prefix="$build/$1-" -print_final_stats=1 \
    -verbosity=0 2>"$build/$1.log" || { tail -n 60 "$build/$1.log"; exit 1; }
  echo "fuzz_$1, $2 s: $(grep number_of_executed_units "$build/$1.log")"
}

if [ "${1:-}" = "--one" ]; then
  run_one "$3" "$2"
  exit 0
fi

seconds=${1:-60}
[ $# -gt 0 ] && shift
names=${*:-import source catalogue encodings round_trip wave sound journal house_rules registry update script}

cmake -S "$root" --preset fuzz >/dev/null
cmake --build "$build" -j2 --target cuewright_fuzzers

mkdir -p "$seeds/source" "$seeds/catalogue" "$seeds/wave" "$seeds/registry" "$seeds/update" "$seeds/script"
{ cat "$root/resources/formats.ini"; printf '\n====\n'; cat "$root/resources/formats.dat"; } >"$seeds/catalogue/shipped"
# A file of each format with rules of its own, behind its number in fuzz/source_fuzzer.cpp.
source_seed() { { printf '%b' "\\0$(printf '%o' "$1")"; cat; } >"$seeds/source/$1"; }
number=0
for name in SUBRIP.srt WEBVTT.vtt ADVANCEDSSA.ass SUBSTATIONALPHA.ssa SAMI.smi MICRODVD.sub MPL2 TMPLAYER.txt TMPLAYERPLUS.sub \
  TMPLAYERCOLON.txt YOUTUBESBV.sbv SUBVIEWER2.sub KARAOKELRC.lrc TTML.xml WEBVTT_RSS.vtt QUICKTIMETEXT SUBVIEWER2SP.sub; do
  if [ -f "$root/tests/data/formats/$name" ]; then source_seed "$number" <"$root/tests/data/formats/$name"; fi
  number=$((number + 1))
done
printf '[10][25]/Good|evening.\n[30][45]Rain.\n' | source_seed 6
printf '{QTtext}{timeScale:600}\n[00:00:01.300]\nRain.\n[00:00:02.000]\n' | source_seed 15
printf '{"segments": [{"start": 1.5, "end": 2, "text": "Rain\\n.", "words": []}]}' | source_seed 17
{ printf '850STL25.011000%241s10000000%760s' '' ''; printf '\0\001\0\377\0\012\0\001\012\012\0\003\0\024\002\0\015\013\013\200Rain\212.\012'
  head -c 101 /dev/zero | tr '\0' '\217'; } | source_seed 18
printf 'Scenarist_SCC V1.0\n\n00:00:01;00\t9420 9420 94ae 94ae 9470 9470 5261 e96e 942f 942f\n\n00:00:03;00\t942c 942c\n' | source_seed 19
# A second of 8000 Hz and 16 bits, and one of 8 bits.
{ printf 'RIFF\0\0\0\0WAVEfmt \020\0\0\0\001\0\001\0\100\037\0\0\200\076\0\0\002\0\020\0data\200\076\0\0'
  head -c 16000 "$root/resources/formats.dat"; head -c 16000 "$root/resources/formats.ini"; } | head -c 16044 >"$seeds/wave/16"
{ printf 'RIFF\0\0\0\0WAVEfmt \020\0\0\0\001\0\001\0\100\037\0\0\100\037\0\0\001\0\010\0data\100\037\0\0'
  head -c 8000 "$root/resources/formats.dat"; } >"$seeds/wave/8"
printf '%s\r\n' REGEDIT4 '' '[HKEY_CURRENT_USER\Software\Test]' '@="default"' '"text"="a=b"' '"bytes"=hex:00,0A,FF' \
  '"number"=dword:0000000A' '"gone"=-' '; nothing' '[-HKEY_USERS\other]' >"$seeds/registry/keys"

printf '%s\n' '[CUEWRITE]' version=1.2.6 'date=21 November' year=2026 month=11 day=21 '<log>' ' - new' '</log>' \
  >"$seeds/update/list"

# The two scripts of the wizards.
printf 'VirtualDub.%s\r\n' 'Open("/a b.avi",0,0);' 'audio.SetSource(1);' 'audio.SetMode(0);' \
  'audio.SetConversion(0,0,0,0,0);' 'video.SetDepth(24,24);' 'video.SetCompression(0x64697678,0,10000,0);' \
  'video.SetRange(0,240000);' 'video.filters.Clear();' 'video.filters.Add("subtitler");' \
  'video.filters.instance[0].Config(1, "/t.ssa", 0, 0);' 'video.filters.Add("resize");' \
  'video.filters.instance[1].Config(352,240,2);' 'SaveAVI("/a[sub].avi");' 'Close();' >"$seeds/script/embed"
printf 'VirtualDub.%s\r\n' 'Open("Z:\\a.avi",0,0);' 'audio.SetMode(1);' 'audio.SetConversion(22050,0,0);' \
  'SaveWAV("/a.wav");' >"$seeds/script/extract"

# Any that fails makes xargs fail.
printf '%s\n' $names | xargs -P "$(nproc)" -n 1 "$0" --one "$seconds"
