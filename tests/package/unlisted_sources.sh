#!/usr/bin/env bash
# A source that no list names is left out of the build, and its tests with it. Each folder has a
# list of its own, where one looks for it.
set -euo pipefail
root=$1 commands=$2 folders=("${@:3}")
status=0
fault() { echo "$*" >&2; status=1; }

cd "$root"
sources() { find "${folders[@]}" -name '*.cpp' -not -path 'tests/package/consumer/*' "$@" | sort -u; }
while read -r source; do
  grep -qF "\"file\": \"$root/$source\"" "$commands" || fault "$source is in no CMakeLists.txt"
done < <(sources)
while read -r folder; do
  [ -e "$folder/CMakeLists.txt" ] || fault "$folder has no CMakeLists.txt"
done < <(sources -printf '%h\n')
exit $status
