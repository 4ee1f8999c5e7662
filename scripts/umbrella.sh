#!/usr/bin/env bash
# Writes mota/mota.hpp, the umbrella header, from the public headers under mota/ (everything
# but _private folders). With --check it only verifies that the checked-in umbrella is current.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

generate() {
  cat <<'HEAD'
// The umbrella header: every public header of the library.
//
//   #include <mota/mota.hpp>
//   mota::strings::ustring16 u = mota::strings::utf8_to_utf16("text");
#ifndef MOTA_MOTA_HPP
#define MOTA_MOTA_HPP

HEAD
  find mota -name '*.hpp' -not -path '*/_private/*' -not -path '*/testdata/*' \
       -not -name mota.hpp | LC_ALL=C sort | sed 's|.*|#include <&>|'
  printf '\n#endif  // MOTA_MOTA_HPP\n'
}

if [ "${1:-}" = "--check" ]; then
  if ! diff -u mota/mota.hpp <(generate); then
    echo "mota/mota.hpp is out of date: run scripts/umbrella.sh" >&2
    exit 1
  fi
  echo "umbrella header lists every public header"
else
  generate > mota/mota.hpp
fi
