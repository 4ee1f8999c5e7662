#!/usr/bin/env bash
# Runs every fuzz target of a fuzz build for a few seconds each, seeded from its corpus in
# fuzz/corpus/<target>/ (copied, so the checked-in corpus is never modified).
set -euo pipefail
dir=${1:-build/fuzz}
seconds=${2:-20}
root=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for f in "$dir"/fuzz/*_fuzz; do
  [ -x "$f" ] || continue
  name=$(basename "$f")
  mkdir -p "$work/$name"
  if [ -d "$root/fuzz/corpus/$name" ]; then cp -r "$root/fuzz/corpus/$name/." "$work/$name/"; fi
  echo "== $name (${seconds}s)"
  if ! "$f" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$work/$name-" "$work/$name" > "$work/$name.log" 2>&1; then
    tail -n 60 "$work/$name.log"
    status=1
    echo "FUZZ FAILED: $name"
  else
    grep -E "stat::number_of_executed_units|Done" "$work/$name.log" | tail -n 2 || true
  fi
done
exit $status
