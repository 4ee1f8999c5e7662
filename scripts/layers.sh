#!/usr/bin/env bash
# Checks that the library's areas depend one way: no source or header includes a header of a
# higher layer. From the bottom:
#
#   0  exceptions, debug, functor, memory, generic/abilities, and the dependency-free
#      export.hpp, version.hpp and types/nil.hpp (the empty tag every layer may name)
#   1  strings, generic (with convert), types
#   2  parser, serialization, system
#   3  i18n, config
#
# Areas of one layer may use each other. Tests are not checked: they may use anything.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

# The layer of a path below mota/ (a file or an included header).
layer_of() {
  case "$1" in
    export.hpp | version.hpp | types/nil.hpp) echo 0 ;;
    exceptions/* | debug/* | functor/* | memory/* | generic/abilities/*) echo 0 ;;
    strings/* | generic/* | types/*) echo 1 ;;
    parser/* | serialization/* | system/*) echo 2 ;;
    i18n/* | config/*) echo 3 ;;
    *) echo "?" ;;
  esac
}

failures=0
while IFS= read -r file; do
  rel=${file#mota/}
  [ "$rel" = mota.hpp ] && continue
  own=$(layer_of "$rel")
  if [ "$own" = "?" ]; then
    echo "layers: $file belongs to no layer; add its area to scripts/layers.sh" >&2
    failures=$((failures + 1))
    continue
  fi
  while IFS= read -r header; do
    theirs=$(layer_of "$header")
    if [ "$theirs" = "?" ] || [ "$theirs" -gt "$own" ]; then
      echo "layers: $file (layer $own) includes mota/$header (layer $theirs)" >&2
      failures=$((failures + 1))
    fi
  done < <(sed -nE 's|^[[:space:]]*#[[:space:]]*include[[:space:]]*<mota/([^>]+)>.*|\1|p' "$file")
done < <(find mota \( -name '*.hpp' -o -name '*.cpp' \) -not -name '*_test.cpp' \
           -not -path '*/testdata/*' | LC_ALL=C sort)

if [ "$failures" -ne 0 ]; then
  echo "layers: $failures include(s) against the layering" >&2
  exit 1
fi
echo "layers: every area depends only on its own layer and those below"
