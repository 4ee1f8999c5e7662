#!/usr/bin/env bash
# Installs what the 32-bit x86 build needs on an x86_64 Debian host: g++-multilib and the i386
# Boost.Filesystem runtime (the i386 -dev package may not co-install; the headers of the native
# one serve). Idempotent. Exits 3 with the reason on standard output when the packages cannot be
# had on this machine, so callers can skip the 32-bit suite instead of failing.
set -uo pipefail

have() { dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q "install ok installed"; }

packages=(g++-multilib libboost-filesystem1.74.0:i386 libboost-system1.74.0:i386)
missing=()
for p in "${packages[@]}"; do have "$p" || missing+=("$p"); done
if [ ${#missing[@]} -eq 0 ]; then
  echo "install-i386: everything is present"
  exit 0
fi

if [ "$(id -u)" -eq 0 ]; then sudo=(); elif command -v sudo >/dev/null 2>&1; then sudo=(sudo); else
  echo "neither root nor sudo to install ${missing[*]}"
  exit 3
fi

if ! dpkg --print-foreign-architectures | grep -qx i386; then
  "${sudo[@]}" dpkg --add-architecture i386 || { echo "cannot add the i386 architecture"; exit 3; }
fi
# The i386 security index sometimes lags behind; the main index is enough.
"${sudo[@]}" apt-get update -qq || echo "install-i386: apt-get update reported errors; going on"
if ! DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq --no-install-recommends \
     "${missing[@]}"; then
  echo "apt-get could not install ${missing[*]} (package versions out of step?)"
  exit 3
fi
echo "install-i386: installed ${missing[*]}"
