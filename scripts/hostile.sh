#!/usr/bin/env bash
# Runs the library on hostile input and checks that cost grows with the input, not faster.
#
#   bash scripts/hostile.sh [BUILD_DIR]        (default build/dev; `make hostile` builds it)
#
# Every case runs in a child of its own (mota_hostile measure): its own process group, an
# address-space limit of HOSTILE_MEM_MB (default 1024) MB, an 8 MB stack, and a wall-clock
# limit of HOSTILE_TIMEOUT (default 60) seconds, HOSTILE_FIFO_TIMEOUT (default 10) for the FIFO
# cases, which must fail at once. On a timeout the whole group is killed.
#
# A family runs at three sizes, 1x, 10x and 100x. The run fails (exit 1) when:
#   - a case crashes (a signal), times out, or its checks fail (the driver exits non-zero, or
#     the tool gives another exit code than its ordinary failure);
#   - a 10x step costs more than 30x in time: CPU time (user + system) of the larger case above
#     TIME_FLOOR_MS = 50 and above 30 times the smaller case's CPU time, the smaller one counted
#     as at least 5 ms. Below those floors the figures are startup noise;
#   - a 10x step costs more than 30x in memory: peak resident set over the baseline (the peak
#     of an empty run of the driver) of the larger case above MEM_FLOOR_MB = 32 and above 30
#     times the smaller case's, that one counted as at least 1 MB;
#   - for labeled_leaf, whose cost is linear but was once 500 times its input: the peak over
#     the baseline above 64 MB + 10 times the input.
# After a timeout the family's larger sizes are skipped (they would only time out too).
set -uo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-build/dev}
case "$build" in /*) ;; *) build="$root/$build" ;; esac
driver="$build/hostile/mota_hostile"
tool="$build/tools/mota"
for exe in "$driver" "$tool"; do
  if [ ! -x "$exe" ]; then
    echo "hostile: $exe is missing; build the dev preset first (make hostile does)" >&2
    exit 2
  fi
done

timeout_s=${HOSTILE_TIMEOUT:-60}
fifo_timeout_s=${HOSTILE_FIFO_TIMEOUT:-10}
mem_mb=${HOSTILE_MEM_MB:-1024}
TIME_FLOOR_MS=50
SMALL_TIME_MS=5
MEM_FLOOR_MB=32
SMALL_MEM_MB=1
MAX_RATIO=30

# The files live in memory when the machine has a tmpfs: on a disk mounted with discard,
# removing 100k directories alone can take minutes. HOSTILE_TMPDIR chooses another place.
tmp=${HOSTILE_TMPDIR:-}
if [ -z "$tmp" ]; then
  if [ -d /dev/shm ] && [ -w /dev/shm ]; then tmp=/dev/shm; else tmp=${TMPDIR:-/tmp}; fi
fi
work=$(mktemp -d "$tmp/mota-hostile.XXXXXX")
# HOSTILE_KEEP=1 keeps the files and the cases' logs for a look afterwards.
if [ "${HOSTILE_KEEP:-0}" != 1 ]; then trap 'rm -rf "$work"' EXIT; fi
mkdir -p "$work/logs"
start=$(date +%s)

passed=0
failed=0
failures=()

# measure SECONDS LOG COMMAND... -> sets m_kind m_code m_wall m_cpu m_rss
measure() {
  local seconds=$1 log=$2
  shift 2
  local line
  line=$("$driver" measure "$seconds" "$mem_mb" "$log" -- "$@") || line=""
  read -r m_kind m_code m_wall m_cpu m_rss <<<"$line"
  if [ -z "${m_rss:-}" ]; then
    m_kind=error m_code=0 m_wall=0 m_cpu=0 m_rss=0
  fi
}

# The files some cases read, made once (100k directories take a few seconds).
prepare() {
  local log="$work/logs/prepare-$1-$2.log"
  measure 300 "$log" "$driver" prepare "$1" "$2" "$work"
  if [ "$m_kind" != exit ] || [ "$m_code" != 0 ]; then
    echo "hostile: preparing $1 $2 failed:" >&2
    cat "$log" >&2
    exit 2
  fi
}

printf 'preparing files in %s ...\n' "$work"
for n in 10 100 1000; do prepare xmc_include "$n"; done
for n in 1000 10000 100000; do prepare catalog_dirs "$n"; done
prepare fifo_load_file 1
printf 'prepared in %ss\n\n' "$(($(date +%s) - start))"

measure "$timeout_s" "$work/logs/empty.log" "$driver" case empty 0 "$work"
if [ "$m_kind" != exit ] || [ "$m_code" != 0 ]; then
  echo "hostile: the empty run failed" >&2
  cat "$work/logs/empty.log" >&2
  exit 2
fi
base_kb=$m_rss

row_format='%-17s %7s  %-9s %8s %8s %8s %7s %7s  %s\n'
# shellcheck disable=SC2059
printf "$row_format" family size status wall_ms cpu_ms rss_MB t_step m_step note
# shellcheck disable=SC2059
printf "$row_format" empty - ok "$m_wall" "$m_cpu" "$(awk -v k="$m_rss" 'BEGIN{printf "%.1f", k/1024}')" \
  - - "baseline"

# fail STATUS WHY: marks the current case failed, keeping every reason.
fail() {
  status=$1
  verdicts+=("$2")
}

# run_family NAME TIMEOUT EXPECTED_EXIT BUDGET_PER_UNIT_KB SIZES... -- COMMAND PREFIX
# Each size runs COMMAND PREFIX followed by the size and the work directory; a size "-" runs
# the command as given.
run_family() {
  local name=$1 seconds=$2 expected=$3 budget=$4
  shift 4
  local sizes=()
  while [ "$1" != -- ]; do
    sizes+=("$1")
    shift
  done
  shift
  local prev_ok=0 prev_cpu=0 prev_over=0 prev_size="" skip=""
  local size
  for size in "${sizes[@]}"; do
    local log="$work/logs/$name-$size.log"
    local t_step=- m_step=-
    verdicts=()
    if [ -n "$skip" ]; then
      # shellcheck disable=SC2059
      printf "$row_format" "$name" "$size" skipped - - - - - "$skip"
      continue
    fi
    if [ "$size" = - ]; then
      measure "$seconds" "$log" "$@"
    else
      measure "$seconds" "$log" "$@" "$size" "$work"
    fi
    local over=$((m_rss > base_kb ? m_rss - base_kb : 0))
    local note
    note=$(head -n 1 "$log" 2>/dev/null | cut -c 1-90)
    status=ok
    case "$m_kind" in
      timeout)
        fail TIMEOUT "no answer within ${seconds}s"
        skip="smaller size timed out"
        ;;
      signal) fail CRASH "killed by SIG$(kill -l "$m_code" 2>/dev/null || echo "$m_code")" ;;
      exit)
        if [ "$m_code" != "$expected" ]; then fail FAIL "exit $m_code, expected $expected"; fi
        ;;
      *) fail ERROR "the measuring child did not report" ;;
    esac
    if [ "$status" = ok ] && [ "$prev_ok" = 1 ]; then
      local verdict
      verdict=$(awk -v t1="$prev_cpu" -v t2="$m_cpu" -v m1="$prev_over" -v m2="$over" \
        -v tf="$TIME_FLOOR_MS" -v ts="$SMALL_TIME_MS" -v mf="$MEM_FLOOR_MB" -v ms="$SMALL_MEM_MB" \
        -v r="$MAX_RATIO" 'BEGIN {
          tr = t2 / (t1 > ts ? t1 : ts); mr = (m2 / 1024) / (m1 / 1024 > ms ? m1 / 1024 : ms);
          printf "x%.1f x%.1f ", tr, mr;
          if (t2 > tf && tr > r) printf "T";
          if (m2 / 1024 > mf && mr > r) printf "M";
        }')
      read -r t_step m_step flags <<<"$verdict"
      case "${flags:-}" in *T*) fail FAIL "time $t_step from $prev_size to $size (limit x$MAX_RATIO)" ;; esac
      case "${flags:-}" in *M*) fail FAIL "memory $m_step from $prev_size to $size (limit x$MAX_RATIO)" ;; esac
    fi
    if [ "$status" = ok ] && [ "$budget" != 0 ]; then
      local allowed_kb=$((64 * 1024 + budget * size))
      if [ "$over" -gt "$allowed_kb" ]; then
        fail FAIL "memory $((over / 1024)) MB over baseline, budget $((allowed_kb / 1024)) MB"
      fi
    fi
    if [ "$status" = ok ]; then
      passed=$((passed + 1))
      prev_ok=1
    else
      failed=$((failed + 1))
      prev_ok=0
      # The driver's own "ok: ..." line says nothing about a failure judged from the figures.
      case "$note" in ok:*) note="" ;; esac
      note="${verdicts[*]}${note:+; $note}"
      failures+=("$name $size: ${verdicts[*]}")
    fi
    prev_cpu=$m_cpu prev_over=$over prev_size=$size
    # shellcheck disable=SC2059
    printf "$row_format" "$name" "$size" "$status" "$m_wall" "$m_cpu" \
      "$(awk -v k="$m_rss" 'BEGIN{printf "%.1f", k/1024}')" "$t_step" "$m_step" "$note"
  done
}

t=$timeout_s
run_family labeled_chain "$t" 0 0 2000 20000 200000 -- "$driver" case labeled_chain
run_family labeled_leaf "$t" 0 10 40 400 4000 -- "$driver" case labeled_leaf
run_family labeled_overlay "$t" 0 0 1000 10000 100000 -- "$driver" case labeled_overlay
run_family xmc_include "$t" 0 0 10 100 1000 -- "$driver" case xmc_include
run_family catalog_dirs "$t" 0 0 1000 10000 100000 -- "$driver" case catalog_dirs
run_family config_indirect "$t" 0 0 1000 10000 100000 -- "$driver" case config_indirect
run_family config_deep_key "$t" 0 0 1000 10000 100000 -- "$driver" case config_deep_key
run_family store_full "$t" 0 0 - -- "$driver" case store_full 1 "$work"
f=$fifo_timeout_s
run_family fifo_load_file "$f" 0 0 - -- "$driver" case fifo_load_file 1 "$work"
run_family fifo_xmc_include "$f" 0 0 - -- "$driver" case fifo_xmc_include 1 "$work"
# The tool's ordinary failures: 2 for a key that is not set, 1 for a file it cannot read.
run_family fifo_config_get "$f" 2 0 - -- "$tool" config get --file "$work/fifo.cfg" hostile.key
run_family fifo_xml_check "$f" 1 0 - -- "$tool" xml check "$work/fifo.cfg"

if [ "${HOSTILE_KEEP:-0}" = 1 ]; then
  echo "kept $work"
else
  rm -rf "$work"
fi
echo
echo "limits: ${timeout_s}s per case (${fifo_timeout_s}s for FIFOs), ${mem_mb} MB address space;" \
  "baseline RSS $((base_kb / 1024)) MB; whole run $(($(date +%s) - start))s"
for f in "${failures[@]}"; do echo "failed: $f"; done
echo "hostile: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
