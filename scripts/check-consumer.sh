#!/usr/bin/env bash
# Installs a build into a scratch prefix and builds examples/consumer against it the way a
# user would: find_package through CMake, then the pkg-config file.
set -euo pipefail
build=${1:-build/dev}
root=$(cd "$(dirname "$0")/.." && pwd)
prefix=$(mktemp -d)
work=$(mktemp -d)
trap 'rm -rf "$prefix" "$work"' EXIT

cmake --install "$build" --prefix "$prefix" > /dev/null
cmake -S "$root/examples/consumer" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" > /dev/null
cmake --build "$work/cmake" > /dev/null
LD_LIBRARY_PATH="$prefix/lib" "$work/cmake/consumer"

export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
g++ -o "$work/consumer-pc" "$root/examples/consumer/main.cpp" $(pkg-config --cflags --libs mota)
LD_LIBRARY_PATH="$prefix/lib" "$work/consumer-pc" > /dev/null
echo "consumer: find_package and pkg-config builds against the installed copy: ok"
