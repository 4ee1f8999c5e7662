#!/usr/bin/env bash
# Builds the Debian packages and checks them the way a user meets them: what each package
# holds, lintian's verdict (any error fails; warnings are listed), installing them with
# apt-get, the installed tool, and examples/consumer built against the installed libmota-dev
# through find_package and through pkg-config. The packages are removed again at the end, so
# the machine is left as it was. Needs root or sudo for apt-get.
# Usage: check-packages.sh [BUILD_DIR]   (default build/package, the "package" preset's)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
build=${1:-build/package}
jobs=${JOBS:-2}
packages=(libmota2.18 libmota-dev mota-tools)

if [ "$(id -u)" -eq 0 ]; then
  sudo=()
elif command -v sudo >/dev/null 2>&1; then
  sudo=(sudo)
else
  echo "check-packages: apt-get needs root or sudo" >&2
  exit 1
fi
apt_get() {
  DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get -o DPkg::Lock::Timeout=600 "$@"
}
fail() {
  echo "check-packages: $*" >&2
  exit 1
}
step() { printf '\n== %s\n' "$*"; }

work=$(mktemp -d)
installed_here=0
cleanup() {
  if [ $installed_here -eq 1 ]; then
    step "removing the packages"
    # purge, not only remove: dpkg would otherwise keep a record of the library package.
    apt_get purge -y -qq "${packages[@]}" > /dev/null || echo "check-packages: removal failed" >&2
  fi
  rm -rf "$work"
}
trap cleanup EXIT

for tool in cpack dpkg-deb dpkg-shlibdeps lintian readelf; do
  command -v "$tool" > /dev/null || fail "$tool is missing (scripts/install-deps.sh package)"
done
for p in "${packages[@]}"; do
  if dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    fail "$p is installed already; remove it first, so that the check installs what it built"
  fi
done

step "building the packages"
cmake --preset package > /dev/null
cmake --build --preset package -j "$jobs" > /dev/null
rm -rf "$build/packages"
cpack --preset package > /dev/null
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
arch=$(dpkg --print-architecture)

declare -A deb
for p in "${packages[@]}"; do
  deb[$p]="$build/packages/${p}_${version}-1_${arch}.deb"
  [ -f "${deb[$p]}" ] || fail "no package ${deb[$p]}"
done

# What each package must hold, beside everything its install component installs.
lib="usr/lib/$multiarch"
declare -A expected=(
  [libmota2.18]="$lib/libmota.so.$version $lib/libmota.so.${version%.*}"
  [libmota-dev]="$lib/libmota.so usr/include/mota/mota.hpp usr/include/mota/version.hpp
                 $lib/cmake/mota/motaConfig.cmake $lib/cmake/mota/motaConfigVersion.cmake
                 $lib/cmake/mota/motaTargets.cmake $lib/pkgconfig/mota.pc"
  [mota-tools]="usr/bin/mota"
)
declare -A component=([libmota2.18]=runtime [libmota-dev]=dev [mota-tools]=tools)

for p in "${packages[@]}"; do
  step "contents of $p"
  dpkg-deb -I "${deb[$p]}" | sed -n 's/^ \(Package\|Version\|Section\|Depends\):/\1:/p'
  dpkg-deb -c "${deb[$p]}" | tee "$work/$p.listing" | awk '{print "  " $6 ($7 ? " " $7 " " $8 : "")}'
  awk '$1 !~ /^d/ {sub(/^\.\//, "", $6); print $6}' "$work/$p.listing" | sort > "$work/$p.files"
  DESTDIR="$work/stage-$p" cmake --install "$build" --component "${component[$p]}" > /dev/null
  (cd "$work/stage-$p" && find . \( -type f -o -type l \) | sed 's|^\./||' | sort) > "$work/$p.staged"
  missing=$(comm -23 <(tr ' ' '\n' <<<"${expected[$p]}" | grep . | sort) "$work/$p.files")
  [ -z "$missing" ] || fail "$p lacks: $missing"
  missing=$(comm -23 "$work/$p.staged" "$work/$p.files")
  [ -z "$missing" ] || fail "$p lacks what its component installs: $missing"
done
grep -q 'usr/include/mota/.*\.hpp' "$work/libmota2.18.files" && fail "libmota2.18 holds headers"
if grep -q '^usr/share/man/man1/mota\.1\.gz$' "$work/mota-tools.files"; then
  echo "mota-tools: manual page present"
else
  echo "mota-tools: no manual page (the build installs none)"
fi

step "the packaged tool has no RPATH"
dpkg-deb -x "${deb[mota-tools]}" "$work/tools-root"
if readelf -d "$work/tools-root/usr/bin/mota" | grep -E 'RPATH|RUNPATH'; then
  fail "usr/bin/mota carries an RPATH"
fi
echo "none"

step "lintian"
lintian_rc=0
lintian_out=$(lintian --tag-display-limit 0 "${deb[@]}" 2>&1) || lintian_rc=$?
# 1 means tags of error severity (counted below); more means lintian itself failed.
[ $lintian_rc -le 1 ] || { echo "$lintian_out"; fail "lintian failed (status $lintian_rc)"; }
echo "${lintian_out:-(no tags)}"
errors=$(grep -c '^E: ' <<<"$lintian_out" || true)
warnings=$(grep -c '^W: ' <<<"$lintian_out" || true)
echo "lintian: $errors errors, $warnings warnings"
[ "$errors" -eq 0 ] || fail "lintian reports errors"

step "installing with apt-get"
installed_here=1
apt_get install -y -qq "${deb[@]/#/./}" > /dev/null 2>&1 || apt_get install -y "${deb[@]/#/./}"
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Package} ${Version} ${Status}\n' "$p"
done

step "the installed tool"
[ "$(command -v mota)" = /usr/bin/mota ] || fail "mota is not /usr/bin/mota"
/usr/bin/mota --version

for with in package pkg-config; do
  step "examples/consumer against the installed libmota-dev through $with"
  ctest --build-and-test examples/consumer "$work/consumer-$with" \
    --build-generator "Unix Makefiles" \
    --build-options "-DMOTA_CONSUMER_WITH=$with" -DMOTA_CONSUMER_STANDARD=17 \
    --test-command consumer > "$work/consumer-$with.log" 2>&1 ||
    { cat "$work/consumer-$with.log"; fail "consumer through $with"; }
  grep -A2 "^Running test command" "$work/consumer-$with.log" | tail -n 2
done

echo
echo "check-packages: ${packages[*]} $version built, checked, installed and used"
