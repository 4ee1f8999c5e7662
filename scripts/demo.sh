#!/usr/bin/env bash
# A short scripted tour of the mota command-line tool over the example data.
# Usage: scripts/demo.sh BUILD_DIR   (the tool is BUILD_DIR/tools/mota)
set -u

if [ $# -ne 1 ]; then
  echo "usage: $0 BUILD_DIR" >&2
  exit 64
fi
build=$(cd "$1" 2>/dev/null && pwd) || { echo "no build directory $1" >&2; exit 1; }
tool="$build/tools/mota"
if [ ! -x "$tool" ]; then
  echo "the tool is not built: $tool" >&2
  exit 1
fi
# Run from the source root so the example paths stay short.
cd "$(dirname "$0")/.."

heading() {
  printf '\n== %s ==\n\n' "$1"
}

# Prints the command (with the tool shown as "mota"), then runs it with its diagnostics in
# line; a non-zero exit status is shown but does not stop the tour.
run() {
  local shown=() word
  for word in "$@"; do
    if [ "$word" = "$tool" ]; then shown+=(mota); else shown+=("$(printf '%q' "$word")"); fi
  done
  printf '$ %s\n' "${shown[*]}"
  "$@" 2>&1
  local status=$?
  if [ $status -ne 0 ]; then printf '(exit status %d)\n' "$status"; fi
  return 0
}

# Like run, but shows only the output lines that match the extended regular expression
# FILTER, as the shown command says; the exit status shown is the command's own.
run_grep() {
  local filter=$1 shown=() word
  shift
  for word in "$@"; do
    if [ "$word" = "$tool" ]; then shown+=(mota); else shown+=("$(printf '%q' "$word")"); fi
  done
  printf "\$ %s | grep -E '%s'\n" "${shown[*]}" "$filter"
  "$@" 2>&1 | grep -E -- "$filter"
  local status=${PIPESTATUS[0]}
  if [ $status -ne 0 ]; then printf '(exit status %d)\n' "$status"; fi
  return 0
}

heading "One message, three locales"
for locale in en_GB de_DE fr_FR; do
  run "$tool" catalog render examples/catalogs/shop.xmc --locale "$locale" shop cart count=3 total=59.9
done
run "$tool" catalog render examples/catalogs/shop.xmc --locale de_DE shop download size=3145728 elapsed=95.25
run "$tool" catalog check examples/catalogs --locale fr_FR

heading "A faulty catalog, reported with the place of the fault"
run grep -n 'typ=' examples/broken/unknown_attribute.xmc
run "$tool" catalog check examples/broken/unknown_attribute.xmc --locale en

heading "Configuration: command line over file over environment"
run env log.level=debug "$tool" config get log.level
run env log.level=debug "$tool" config get log.level --file examples/config/app.cfg
run env log.level=debug "$tool" config get log.level --file examples/config/app.cfg -- -log.level=trace
run "$tool" config get server.colours --file examples/config/app.cfg

heading "Linting a catalog set: what translators should fix, in every language"
run_grep 'untranslated\]|argument-(kind|renamed)\]|^catalog lint:' "$tool" catalog lint examples/broken/lint

heading "A configuration file that does not say what it means"
run_grep 'comment begins|joins the next key|warning\(s\)' "$tool" config check examples/config/broken.cfg
run "$tool" config get log.level --show-origin --file examples/config/broken.cfg
run "$tool" config get log.level --show-origin --file examples/config/broken.cfg -- -log.level=trace

heading "CP1252 text converted to UTF-8"
latin='Caf\xe9 cr\xe8me br\xfbl\xe9e \x80 4,50\n'
printf "\$ printf '%s' | mota convert --from CP1252 --to UTF-8\n" "$latin"
printf "$latin" | "$tool" convert --from CP1252 --to UTF-8
