#!/usr/bin/env bash
# The core needs the C and C++ runtimes and the two platform libraries, and nothing else; a
# sanitizer's runtime comes with the compiler flags.
set -euo pipefail
needed=$(ldd "$1" | awk '{print $1}')
printf '%s\n' "$needed" | grep -q '^liblakresvos_cells\.so'
unexpected=$(printf '%s\n' "$needed" | grep -vE \
  '^(linux-vdso\.so|liblakresvos_(cells|codepage)\.so|libstdc\+\+\.so|libgcc_s\.so|libm\.so|libc\.so|lib(a|t|ub)san\.so|/lib64/ld-linux)' || true)
if [ -n "$unexpected" ]; then
  printf 'unexpected libraries:\n%s\n' "$unexpected"
  exit 1
fi
