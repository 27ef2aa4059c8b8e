#!/usr/bin/env bash
# The preset `install` builds what is installed and nothing else, and needs nothing that only tests
# or benchmarks use.
set -euo pipefail
cmake=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

cd "$root"
"$cmake" --preset install -B "$work" >"$work/log" 2>&1 || fail "$(cat "$work/log")"
cd "$work"

wanted=$(grep -iE '(gtest|rapidcheck|benchmark|pugixml|cmark)\w*_(DIR|FOUND):|ccache|debian_python' \
  CMakeCache.txt || true)
[ -z "$wanted" ] || fail "what only tests need is looked for: $wanted"

sources=$(grep -oP "\"file\": \"\Q$root\E/\K(tests|bench|examples|fuzz)/[^\"]+" compile_commands.json || true)
[ -z "$sources" ] || fail "not installed, but compiled: $sources"

built=$(ninja -n | sed -n 's/^.* Linking CXX \(shared library\|executable\) //p' | sort)
[ -n "$built" ] || fail "nothing is built"
installed=$(grep -rhoP --include=cmake_install.cmake "\"\Q$work\E/\K[^\"]+" . | sort -u)
more=$(comm -23 <(echo "$built") <(echo "$installed"))
[ -z "$more" ] || fail "not installed, but built: $more"
