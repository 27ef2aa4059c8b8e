#!/usr/bin/env bash
# Each binary of a release names the libraries in binaries.txt, brings along those that they need, and
# nothing else.
set -euo pipefail
list=$1 binaries=("${@:2}")

find_needed() { readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'; }
find_loaded() { ldd "$1" | awk '{print $1}'; }

# each VERB COMMAND: a line for each library that COMMAND finds for a binary.
each() {
  local binary
  for binary in "${binaries[@]}"; do
    "$2" "$binary" | grep -vE '^(linux-vdso\.so|(/lib64/)?ld-linux)' |
      sed "s/^/$(basename "$binary") $1 /"
  done
}

names=$(basename -a "${binaries[@]}" | paste -sd'|')
{
  each needs find_needed
  each loads find_loaded
} | LC_ALL=C sort | diff <(grep -E "^($names) " "$list") -
