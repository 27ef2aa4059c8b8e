#!/usr/bin/env bash
# usage: global_objects_finds_faults.sh GLOBAL_OBJECTS COMPILER
#
# The check finds objects that its list lacks, whatever section they are in, what no binary has, and
# a binary that has no symbols to look at.
set -euo pipefail
check=$1 compiler=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cat >"$folder/globals.cpp" <<'CPP'
namespace space { int set = 1; static int counter; int Count() { return ++counter; } }
thread_local int perThread = 2;
int const constant = 3;
int const* const pointer = &constant;
int Lazy() { static int const first = space::Count(); return first + *pointer; }
CPP
"$compiler" -shared -fPIC -o "$folder/globals.so" "$folder/globals.cpp"

expect() {
  local found
  found=$("$check" "$folder/list.txt" "$folder/globals.so" 2>&1 | sed "s|$folder/||") && status=0 || status=$?
  [[ $status == "$1" && $found == "$2" ]] || { printf 'exit %s\n%s\n' "$status" "$found"; exit 1; }
}

printf '# Everything\n\nspace::*: a reason\nperThread: a reason\nLazy()::first: a reason\n' >"$folder/list.txt"
expect 0 ''
printf 'space::set: a reason\ngone: a reason\n' >"$folder/list.txt"
expect 1 'globals.so: Lazy()::first may be written after start
globals.so: perThread may be written after start
globals.so: space::counter may be written after start
list.txt: no binary has gone'

strip "$folder/globals.so"
printf 'space::*: a reason\nperThread: a reason\n' >"$folder/list.txt"
expect 1 'globals.so: has no symbols, so its objects cannot be told'
