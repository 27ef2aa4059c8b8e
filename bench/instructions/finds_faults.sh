#!/usr/bin/env bash
# The check of instructions names each job that is not what its figure says, and no other.
set -euo pipefail
check=$1 valgrind=$2 jobs=$3 compiler=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

jobs_in() { grep -vE '^(#|compiler)' "$1" | cut -d ' ' -f 1; }

"$check" "$valgrind" "$jobs" "$compiler" "$work/figures" --renew
last=$(jobs_in "$work/figures" | tail -n 1)

# Figures that are too low or too high for all jobs but the first, which is within the limit, and the
# last, which has none.
awk -v last="$last" '/^(#|compiler)/ { print; next }
                     $1 == last { print "gone 1"; next }
                     { printf "%s %d\n", $1, $2 * (!jobs++ ? 1.03 : jobs % 2 ? 0.9 : 1.1) }' \
  "$work/figures" >"$work/made_up"
if "$check" "$valgrind" "$jobs" "$compiler" "$work/made_up" 2>"$work/found"; then
  echo "made-up figures pass" >&2
  exit 1
fi
diff <(jobs_in "$work/figures" | tail -n +2 && echo gone) <(sed '$d' "$work/found" | cut -d : -f 1)
grep -qP '^items: [\d,]{5,} instructions, [+-]\d+\.\d% beside the figure of [\d,]{5,}$' "$work/found"
grep -qP "^$last: [\\d,]{5,} instructions, but no figure$" "$work/found"
grep -q '^gone: a figure, but no such job$' "$work/found"
tail -n 1 "$work/found" | grep -q 'bench --instructions$'

status=0
"$check" "$valgrind" "$jobs" "another $compiler" "$work/figures" || status=$?
[ "$status" -eq 77 ]
