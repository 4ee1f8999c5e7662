#!/usr/bin/env bash
# Runs every benchmark executable of a bench build, then prints one table of ratios (our median
# / the peer's median) for every line of every bench/*.ratios file.
#
#   bash scripts/run-bench.sh [build-dir] [extra benchmark arguments...]
#
# A .ratios file belongs to the suite of its name (bench/config_bench.ratios to config_bench)
# and holds one path per line, fields separated by tabs:
#   label  our-benchmark  peer-benchmark  goal  [counter]
# Times are compared by CPU time (the machine may be shared, which inflates wall time more);
# with a fifth field that column of the results is compared instead: a counter (peak memory,
# for example) or real_time (for paths whose work is mostly done by the kernel, where the CPU
# time the process is charged says little). Lines starting with "#" and empty lines are
# skipped. A ratio above its goal is marked "OVER".
# Environment: BENCH_REPETITIONS (default 9), BENCH_FILTER (a --benchmark_filter regex).
set -euo pipefail
dir=${1:-build/bench}
shift || true
here=$(cd "$(dirname "$0")/.." && pwd)
repetitions=${BENCH_REPETITIONS:-9}
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT

found=0
for b in "$dir"/bench/*_bench; do
  [ -x "$b" ] || continue
  found=1
  suite=$(basename "$b")
  echo "== $suite"
  args=(--benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true
    --benchmark_report_aggregates_only=true --benchmark_counters_tabular=true
    --benchmark_out="$results/$suite.json" --benchmark_out_format=json)
  if [ -n "${BENCH_FILTER:-}" ]; then args+=(--benchmark_filter="$BENCH_FILTER"); fi
  "$b" "${args[@]}" "$@"
done
if [ "$found" -eq 0 ]; then
  echo "run-bench: no benchmarks in $dir/bench"
  exit 1
fi

# Prints the table; exit status 0 even when lines are over their goal: the table is the report.
echo
echo "== ratios (ours / peer, median of $repetitions interleaved repetitions)"
printf '%-48s %14s %14s %8s %6s  %s\n' "path" "ours" "peer" "ratio" "goal" ""
for ratios in "$here"/bench/*.ratios; do
  [ -f "$ratios" ] || continue
  suite=$(basename "$ratios" .ratios)
  json="$results/$suite.json"
  awk -F'\t' -v json="$json" -v suite="$suite" '
    # Reads the medians of the suite: value[name, key] from the JSON Google Benchmark wrote, one
    # "key": value pair a line. (JSON, not CSV: the CSV writer aborts when the benchmarks of one
    # suite report different counters.)
    function load(   line, key, val, name) {
      loaded = 1
      while ((getline line < json) > 0) {
        if (line !~ /^ *"[^"]+": /) continue
        key = line; sub(/^ *"/, "", key); sub(/".*$/, "", key)
        val = line; sub(/^ *"[^"]+": /, "", val); sub(/,$/, "", val); gsub(/"/, "", val)
        if (key == "name") { name = val; continue }
        if (name !~ /_median$/) continue
        value[substr(name, 1, length(name) - 7), key] = val
        if (key == "time_unit") unit[substr(name, 1, length(name) - 7)] = val
      }
    }
    function scale(u) { return u == "s" ? 1e9 : u == "ms" ? 1e6 : u == "us" ? 1e3 : 1 }
    /^#/ || NF < 4 { next }
    {
      if (!loaded) load()
      label = $1; ours = $2; peer = $3; goal = $4; counter = (NF >= 5 && $5 != "") ? $5 : ""
      column = counter != "" ? counter : "cpu_time"
      if (!((ours, column) in value) || !((peer, column) in value)) {
        printf "%-48s %14s %14s %8s %6s  %s\n", label, "-", "-", "-", goal, "MISSING (" suite ")"
        next
      }
      a = value[ours, column]; b = value[peer, column]
      if (column ~ /_time$/) { a *= scale(unit[ours]); b *= scale(unit[peer]); u = "ns" } else u = ""
      ratio = b > 0 ? a / b : 0
      mark = ratio > goal + 0 ? "OVER" : ""
      printf "%-48s %12.4g%-2s %12.4g%-2s %8.3f %6s  %s\n", label, a, u, b, u, ratio, goal, mark
    }' "$ratios"
done
