#!/usr/bin/env bash
# Installs what lacks, builds the program with its tests and runs them.
set -eu
cd "$(dirname "$0")"
. scripts/packages.sh

# shellcheck disable=SC2086
need_packages $packages_build $packages_run $packages_display
build_preset debug
say "running the tests"
ctest --preset debug
