#!/usr/bin/env bash
# What a run of the report program loads beyond what the program starts with is in runs.txt: what
# writes workbooks and what draws charts come with the first of these. Where they are missing, the
# rest works.
set -euo pipefail
list=$1 program=$2 data=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

table=("$data" --table 'Class ~ Survived')
run() { # run PROGRAM OPTION...: one table
  "$1" "${table[@]}" -o "$work/output" "${@:2}"
}

# find_more ARGUMENT...: the libraries that a run loads beyond the program's.
find_more() {
  LD_DEBUG=libs LD_DEBUG_OUTPUT="$work/trace" "$program" "$@" >"$work/printed" ||
    fail "$* does not run"
  sed -n 's/.*calling init: .*\///p' "$work"/trace.* | LC_ALL=C sort -u |
    comm -23 - <(ldd "$program" | awk '{print $1}' | sed 's/.*\///' | LC_ALL=C sort -u)
  rm "$work"/trace.*
}

# list_more NAME ARGUMENT...: a line for each of them, which are the same whether a file is written
# or standard output.
list_more() {
  find_more "${@:2}" -o "$work/output" >"$work/file"
  find_more "${@:2}" | diff "$work/file" - >&2 || fail "$1 to standard output loads other libraries"
  sed "s/^/$1 loads /" "$work/file"
}

run "$program" --format json
mv "$work/output" "$work/document.json"
echo '{"title": {"fontStyle": "bold"}}' >"$work/style.json"
{
  for format in csv html json markdown text xlsx; do
    list_more "--format $format" "${table[@]}" --format "$format"
    list_more "--from --format $format" --from "$work/document.json" --format "$format"
  done
  for format in html json text xlsx; do
    list_more "--style --format $format" "${table[@]}" --style "$work/style.json" --format "$format"
  done
  for format in html json; do
    list_more "--format $format --chart" "${table[@]}" --format "$format" --chart
  done
} | LC_ALL=C sort | diff "$list" -

# Without the modules.
mkdir "$work/bare"
cp "$program" "$work/bare"
ldd "$program" | awk '$1 ~ /^liblakresvos/ {print $3}' | xargs -I{} cp {} "$work/bare"
bare=$work/bare/$(basename "$program")
export LD_LIBRARY_PATH=$work/bare
# lacks MODULE WHAT OPTION...: the run fails, and says why.
lacks() {
  local message
  message="lakresvos-report: cannot $2: $work/bare/$1: cannot open shared object file: No such file or directory"
  rm -f "$work/output"
  run "$bare" "${@:3}" 2>"$work/errors" && fail "$2 without $1"
  diff "$work/errors" - <<<"$message"
  [ ! -e "$work/output" ] || fail "$2 without $1 writes something"
}
run "$bare" --format html
lacks lakresvos_render_xlsx.so.0 'write workbooks' --format xlsx
lacks lakresvos_report_charts.so 'draw charts' --format html --chart

# A module of another version is not used.
folder=$(dirname "$(env -u LD_LIBRARY_PATH ldd "$program" | awk '$1 ~ /^liblakresvos_render/ {print $3}')")
sed 's/LakresvosWriteXlsx_[0-9]/LakresvosWriteXlsx_x/' "$folder/lakresvos_render_xlsx.so.0" \
  >"$work/bare/lakresvos_render_xlsx.so.0"
run "$bare" --format xlsx 2>"$work/errors" && fail "a module of another version is used"
grep -q 'cannot write workbooks: .*: undefined symbol: LakresvosWriteXlsx_' "$work/errors" ||
  fail "$(cat "$work/errors")"
