#!/bin/sh
# Whole-process comparison of cuewright-batch with FFmpeg, subsrt-ts and the floor program.
# usage: bench/formats/run.sh [BUILD_FOLDER] [ROUNDS]   (default: build/release, 9)
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${1:-$root/build/release}
rounds=${2:-9}
work=$build/bench-formats

cmake --build "$build" --target cuewright_batch cuewright_resources formats_floor formats_whole_process
mkdir -p "$work"
if command -v npm >/dev/null && [ ! -d "$work/node_modules/subsrt-ts" ]; then
  npm install --prefix "$work" --no-audit --no-fund --silent subsrt-ts@2.1.2 ||
    echo "subsrt-ts could not be installed: the comparison runs without it."
fi
command -v ffmpeg >/dev/null || echo "FFmpeg is not installed: its rows will say 'failed'."
"$build/bin/formats_whole_process" "$build/bin" "$work" "$rounds"
