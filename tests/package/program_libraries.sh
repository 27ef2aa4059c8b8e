#!/usr/bin/env bash
# The report program starts with few shared libraries; those that draw charts come when it draws one.
set -euo pipefail
libraries=$(ldd "$1" | awk '{print $1}' | grep -vE '^lib(a|t|ub)san\.so')
count=$(wc -l <<<"$libraries")
if [ "$count" -gt 20 ]; then
  printf '%s libraries where there may be 20:\n%s\n' "$count" "$libraries"
  exit 1
fi
