#!/usr/bin/env bash
# Runs every benchmark executable of a bench build; extra arguments go to each of them.
set -euo pipefail
dir=${1:-build/bench}
shift || true
found=0
for b in "$dir"/bench/*_bench; do
  [ -x "$b" ] || continue
  found=1
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true "$@"
done
[ "$found" -eq 1 ] || echo "run-bench: no benchmarks in $dir/bench"
