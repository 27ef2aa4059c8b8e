#!/usr/bin/env bash
# The check of the lists names each source that is not compiled, and each folder without a list.
set -euo pipefail
check=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# source FILE...: sources that the build compiles.
source() {
  local file
  for file in "$@"; do
    mkdir -p "$(dirname "$file")"
    touch "$file"
    printf '  "file": "%s",\n' "$work/$file" >>commands.json
  done
}

source bench/Table_bench.cpp core/table/Table.cpp core/table/Store.cpp tests/core/Table_test.cpp
touch {bench,core/table,tests/core}/CMakeLists.txt core/table/Store.h core/CMakeLists.txt
mkdir -p tests/package/consumer unchecked
touch tests/package/consumer/program.cpp unchecked/Draft.cpp
"$check" "$work" "$work/commands.json" bench core tests

touch bench/Idle_bench.cpp core/table/able.cpp tests/Stray_test.cpp
source core/layout/Places.cpp
if "$check" "$work" "$work/commands.json" bench core tests 2>found; then
  echo "nothing was found"
  exit 1
fi
diff - found <<'TEXT'
bench/Idle_bench.cpp is in no CMakeLists.txt
core/table/able.cpp is in no CMakeLists.txt
tests/Stray_test.cpp is in no CMakeLists.txt
core/layout has no CMakeLists.txt
tests has no CMakeLists.txt
TEXT
