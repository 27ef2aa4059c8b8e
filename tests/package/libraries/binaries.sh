#!/usr/bin/env bash
# Each binary needs the libraries in binaries.txt, brings along those that they need, and nothing
# else. What it names itself depends on how it is compiled, so that is compared in releases only; a
# sanitizer's runtime comes with the compiler flags.
set -euo pipefail
list=$1 build_type=$2 binaries=("${@:3}")

find_needed() { readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'; }
find_loaded() { ldd "$1" | awk '{print $1}'; }

# each VERB COMMAND: a line for each library that COMMAND finds for a binary.
each() {
  local binary
  for binary in "${binaries[@]}"; do
    "$2" "$binary" | grep -vE '^(linux-vdso\.so|(/lib64/)?ld-linux|lib(a|l|t|ub)san\.so)' |
      sed "s/^/$(basename "$binary") $1 /"
  done
}

names=$(basename -a "${binaries[@]}" | paste -sd'|')
verbs=loads
[ "$build_type" != Release ] || verbs='(needs|loads)'
{
  [ "$build_type" != Release ] || each needs find_needed
  each loads find_loaded
} | LC_ALL=C sort | diff <(grep -E "^($names) $verbs " "$list") -
