#!/usr/bin/env bash
# The checks of .clang-tidy on every source file of the program, in a build folder
# of its own: the compiler's precompiled headers are none for clang.
set -eu
cd "$(dirname "$0")/.."
cmake -S . -B build/tidy -G Ninja -D CMAKE_BUILD_TYPE=Debug -D CMAKE_EXPORT_COMPILE_COMMANDS=ON \
  -D CMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
git ls-files -z 'core/*.cpp' 'formats/*.cpp' 'settings/*.cpp' 'tools/*.cpp' 'audio/*.cpp' 'external/*.cpp' \
  'runner/*.cpp' 'forms/*.cpp' 'platform/*.cpp' 'batch/*.cpp' 'vdrun/*.cpp' 'ui/*.cpp' 'app/*.cpp' |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/tidy --quiet \
    --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-optimization-argument \
    --extra-arg=-Wno-unused-command-line-argument 2>/dev/null
