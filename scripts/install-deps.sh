#!/usr/bin/env bash
# Installs, with apt-get, what one kind of work needs and the machine does not have yet:
#
#   install-deps.sh [build] [bench] [fuzz] [clang] [format] [coverage] [docs] [package]
#
# build (the default) is what the library, the tool and the tests need; the others add the
# benchmark peers, clang for the fuzz targets or the clang warning build, clang-format (and
# git, whose file list it formats), gcovr, doxygen for the API reference, and what building and
# checking the Debian packages needs. clang's runtime headers also let the ordinary build replay
# the fuzz targets that read their input through FuzzedDataProvider; without them those
# replays are left out. coverage installs them, so that its figure is the same on every machine.
# Safe to run again: with everything present it changes nothing.
set -euo pipefail

declare -A group=(
  [build]="cmake g++ make pkg-config libboost-filesystem-dev libboost-system-dev libboost-dev libgtest-dev libgmock-dev googletest"
  [bench]="libbenchmark-dev libicu-dev libexpat1-dev libpugixml-dev"
  [fuzz]="clang libclang-rt-14-dev"
  [clang]="clang libclang-rt-14-dev"
  [format]="clang-format git"
  [coverage]="gcovr libclang-rt-14-dev"
  [docs]="doxygen"
  [package]="dpkg-dev file lintian"
)

wanted=("$@")
[ ${#wanted[@]} -eq 0 ] && wanted=(build)

packages=()
for name in "${wanted[@]}"; do
  if [ -z "${group[$name]+set}" ]; then
    echo "install-deps: unknown group \"$name\" (known: ${!group[*]})" >&2
    exit 2
  fi
  read -r -a words <<<"${group[$name]}"
  packages+=("${words[@]}")
done

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: everything for ${wanted[*]} is present"
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
