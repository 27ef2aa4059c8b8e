#!/usr/bin/env bash
# A list of tests that is gone fails the configuration; the tests in it must not just be left out.
set -euo pipefail
cmake=$1 tests=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/CMakeLists.txt" <<'TEXT'
cmake_minimum_required(VERSION 3.25)
project(lists LANGUAGES NONE)
function(lakresvos_add_test)
endfunction()
function(target_link_options)
endfunction()
add_subdirectory(tests)
TEXT
configure() { "$cmake" -S "$work" -B "$work/build" >"$work/log" 2>&1; }

cp -r "$tests" "$work/tests"
configure || { cat "$work/log"; exit 1; }
lists=("$work"/tests/*/CMakeLists.txt)
[ -e "${lists[0]}" ]
for list in "${lists[@]}"; do
  mv "$list" "$work/away"
  if configure; then
    echo "nobody misses $list"
    exit 1
  fi
  mv "$work/away" "$list"
done
