#!/usr/bin/env bash
# The checks of .clang-tidy on every source file of the program, with the debug build's commands.
set -eu
cd "$(dirname "$0")/.."
git ls-files -z 'core/*.cpp' 'formats/*.cpp' 'settings/*.cpp' 'tools/*.cpp' 'audio/*.cpp' 'external/*.cpp' \
  'forms/*.cpp' 'platform/*.cpp' 'batch/*.cpp' 'ui/*.cpp' 'app/*.cpp' |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/debug --quiet \
    --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-optimization-argument \
    --extra-arg=-Wno-unused-command-line-argument 2>/dev/null
