#!/usr/bin/env bash
# Installs, with apt-get, whatever the build, the tests, the benchmarks and the fuzzers need and
# the machine does not have yet. Safe to run again: with everything present it changes nothing.
set -euo pipefail

packages=(
  cmake g++ make pkg-config git
  libboost-filesystem-dev libboost-system-dev libboost-dev
  libgtest-dev libgmock-dev googletest
  libbenchmark-dev
  clang libclang-rt-14-dev clang-format
  # peers the benchmarks compare against
  libicu-dev libexpat1-dev libpugixml-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: everything is present"
  exit 0
fi

if [ "$(id -u)" -eq 0 ]; then
  sudo=()
elif command -v sudo >/dev/null 2>&1; then
  sudo=(sudo)
else
  echo "install-deps: missing ${missing[*]}, and neither root nor sudo is available" >&2
  exit 1
fi

echo "install-deps: installing ${missing[*]}"
"${sudo[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
