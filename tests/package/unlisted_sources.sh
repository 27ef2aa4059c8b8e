#!/usr/bin/env bash
# A source that no list names is left out of the build, and its tests with it.
set -euo pipefail
root=$1 commands=$2
status=0
while read -r source; do
  if ! grep -qF "\"file\": \"$source\"" "$commands"; then
    echo "${source#"$root"/} is in no CMakeLists.txt"
    status=1
  fi
done < <(find "$root"/{cells,codepage,core,examples,render,tabulate,tests,tools} -name '*.cpp' \
  -not -path "$root/tests/package/consumer/*")
exit $status
