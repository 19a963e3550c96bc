#!/usr/bin/env bash
# Every source file has the form that clang-format gives it.
set -eu
cd "$(dirname "$0")/.."
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror
