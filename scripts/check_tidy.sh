#!/usr/bin/env bash
# The checks of .clang-tidy, in a build folder of its own.
#   scripts/check_tidy.sh          the sources that the last 20 commits changed, the latest 30 of them
#   scripts/check_tidy.sh --all    every source file of the program
#   scripts/check_tidy.sh FILE...  these
set -eu
cd "$(dirname "$0")/.."
log=$(mktemp)
trap 'rm -f "$log"' EXIT
cmake --preset tidy >"$log" 2>&1 || { cat "$log"; exit 1; }

# Every folder of the program has a list of its sources.
folders=$(git ls-files "*/CMakeLists.txt" | xargs -n 1 dirname | grep -vE "^(tests|bench|fuzz|resources|packaging)$")
sources=$(git ls-files $(printf "%s/*.cpp " $folders))
case "${1:-}" in
  --all) chosen=$sources ;;
  "")
    base=$(git rev-list --max-count=21 HEAD | tail -n 1)
    changed=$(git log --no-merges --name-only --format= "$base..HEAD" -- $(printf "%s/*.cpp " $folders) | awk '!seen[$0]++')
    # Each takes some ten seconds; whoever changed more runs it by name, or --all.
    chosen=$(for file in $changed; do [ ! -e "$file" ] || echo "$file"; done | head -n 30)
    ;;
  *) chosen=$* ;;
esac
[ -n "$chosen" ] || { echo "no source changed"; exit 0; }
echo "$(printf '%s\n' $chosen | wc -l) of $(printf '%s\n' $sources | wc -l) files"
# What it suppresses is told on the error stream with each file, which nobody needs; its own failures are.
printf '%s\n' $chosen | xargs -n 4 -P "$(nproc)" sh -c '
  errors=$(mktemp)
  clang-tidy -p build/tidy --quiet --extra-arg=-Wno-unknown-warning-option \
    --extra-arg=-Wno-ignored-optimization-argument --extra-arg=-Wno-unused-command-line-argument "$@" 2>"$errors"
  status=$?
  grep -vE "warnings? generated|warnings? treated as|Suppressed|Use -header-filter|Use -system-headers" "$errors" >&2
  rm -f "$errors"
  exit $status' tidy
