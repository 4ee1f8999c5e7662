#!/usr/bin/env bash
# Prints line and branch coverage of the library (mota/, tests excluded) from a coverage build
# whose tests have run, and fails when line coverage is below the floor.
#
#   coverage.sh BUILD_DIR LINE_FLOOR
#
# Branches the compiler adds for exceptions and for code it cannot reach are left out, so the
# branch figure counts the decisions written in the source.
set -euo pipefail
build=${1:?build directory}
floor=${2:?line coverage floor, in percent}
root=$(cd "$(dirname "$0")/.." && pwd)

cd "$root"
gcovr --root "$root" --object-directory "$build" \
  --filter "$root/mota/" --exclude '.*_test\.cpp$' \
  --exclude-directories '.*/CMakeFiles/[0-9.]+/.*' \
  --exclude-throw-branches --exclude-unreachable-branches \
  --print-summary --fail-under-line "$floor" \
  --txt "$build/coverage.txt" || {
  rc=$?
  echo "coverage: line coverage of mota/ is below the floor of $floor% (or gcovr failed, $rc)" >&2
  exit 1
}
echo "coverage: per-file figures in $build/coverage.txt"
