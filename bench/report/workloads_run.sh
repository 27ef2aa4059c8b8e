#!/usr/bin/env bash
# Every workload runs to its end, though small, and all figures and charts of the page can be made of what
# they measured. The library must have figures; what it is compared with may be missing.
set -euo pipefail
root=$1 report_program=$2 programs=("${@:3}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fault() { echo "$*" >&2; status=1; }

mkdir "$work/results"
for program in "${programs[@]}"; do
  "$program" --quick --results "$work/results/$(basename "$program" _bench).json"
done
cp "$root/docs/performance.md" "$work/page.md"
"$root/bench/report/report.py" "$work/results" "$work/report.md" "$work/page.md" "$report_program"

faulty=$(grep -E '^\| (lakresvos[^|]*|Child|AddNewChild|headings|in bulk) \| [^0-9]' "$work/report.md") &&
  fault "no figures: $faulty"
for program in "${programs[@]}"; do
  grep -q "^## $(basename "$program" _bench)\$" "$work/report.md" || fault "$program has no section"
done
if grep 'Not measured yet' "$work/page.md"; then fault "something was not filled in"; fi
grep -qF '(quick)' "$work/page.md" || fault "the page has old figures"
while read -r chart; do
  grep -q '<svg' "$work/$chart" || fault "$chart is no chart"
done < <(grep -oP '\]\(\Kpage/[^)]+\.svg' "$work/page.md")
[ "$(find "$work/page" -name '*.svg' | wc -l)" -eq 4 ] || fault "not all charts were drawn"
exit $status
