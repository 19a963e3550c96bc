#!/usr/bin/env bash
# Runs every measurement of bench/ for a moment, which shows that all of them still run; their figures say nothing then.
#   scripts/bench_moment.sh [BUILD_FOLDER]      (default: build/debug)
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/debug}
bin=$build/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=offscreen

targets="bench_audio_bar bench_breaks bench_caption_list bench_check bench_film_sound bench_formats bench_hostile bench_rules bench_rules_window bench_spelling busy_window
  cuewright cuewright_batch cuewright_resources formats_floor formats_whole_process startup_floor startup_watch vdrun
  wave_floor wave_load"
# shellcheck disable=SC2086
cmake --build "$build" --target $targets >"$work/log" || { tail -n 40 "$work/log"; exit 1; }

# A measurement that fails tells its name and its last lines.
run() {
  local name=$1 from=$SECONDS
  shift
  if ! "$@" >"$work/log" 2>&1; then
    tail -n 20 "$work/log"
    echo "bench_moment: $name failed" >&2
    exit 1
  fi
  echo "$name: $((SECONDS - from)) s"
}

moment="--benchmark_min_time=0.001"
run audio_bar "$bin/bench_audio_bar" $moment
run caption_list "$bin/bench_caption_list" $moment
run formats "$bin/bench_formats" $moment
run hostile "$bin/bench_hostile" --moment
run whole_process "$bin/formats_whole_process" "$bin" "$work" 1
run check "$bin/bench_check" resources --moment
run breaks "$bin/bench_breaks" resources bench/breaks/en.txt bench/breaks/es.txt bench/breaks/de.txt bench/breaks/fr.txt
run rules "$bin/bench_rules" --moment
run rules_window "$bin/bench_rules_window" --moment
run spelling "$bin/bench_spelling"
ffmpeg -v error -f lavfi -i sine=d=10 -ac 2 "$work/film.mka"
run film_sound "$bin/bench_film_sound" "$work/film.mka" "$work/film.wav" 1
run shots bench/shots/shots.py "$bin/cuewright-batch" --films 1 --shots 4
run wave bench/wave/compare.py "$build" --moment
run vdrun bench/external/compare.py "$bin/vdrun/vdrun" --moment
run startup env -u QT_QPA_PLATFORM bench/startup/run.sh "$build" 1
run capture bench/capture_accuracy.py "$bin/cuewright" --moment
run busy_capture bench/capture_accuracy.py "$bin/cuewright" --moment --busy "$build/bench/libbusy_window.so"
run speed_capture bench/capture_accuracy.py "$bin/cuewright" --moment --speed 0.5
run voice_films bench/voice/make_films.py "$work/films" --captions 20 --conditions clean
run voice_fit bench/voice/fit.py "$bin/cuewright-batch" --captions 6 --seeds 1 --conditions clean
run voice_align bench/voice/align.py "$bin/cuewright-batch" "$work/films" --conditions clean
run voice_sync bench/voice/sync.py "$bin/cuewright-batch" "$work/films" --conditions clean --runs 1
