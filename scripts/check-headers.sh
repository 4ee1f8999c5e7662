#!/usr/bin/env bash
# Compiles every installed header alone, as a consumer would include it, with the warnings a
# strict consumer turns on made errors: each as C++17, and the umbrella header (which includes
# all the public ones) as C++20 too.
# Usage: check-headers.sh INCLUDE_DIR [COMPILER]
set -euo pipefail
include=${1:?usage: check-headers.sh INCLUDE_DIR [COMPILER]}
compiler=${2:-c++}
flags=(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -fsyntax-only)

headers=$(cd "$include" && find mota -name '*.hpp' | LC_ALL=C sort)
if [ -z "$headers" ]; then
  echo "check-headers: no headers under $include/mota" >&2
  exit 1
fi

failed=0
count=0
for header in $headers; do
  standards=(c++17)
  [ "$header" = mota/mota.hpp ] && standards+=(c++20)
  for std in "${standards[@]}"; do
    count=$((count + 1))
    if ! out=$(printf '#include <%s>\n' "$header" |
                 "$compiler" -std=$std "${flags[@]}" -I "$include" -x c++ - 2>&1); then
      echo "check-headers: $header (-std=$std):" >&2
      echo "$out" >&2
      failed=$((failed + 1))
    fi
  done
done
if [ $failed -ne 0 ]; then
  echo "check-headers: $failed of $count compilations failed" >&2
  exit 1
fi
echo "check-headers: $count compilations of $(wc -w <<<"$headers") headers clean"
