#!/usr/bin/env bash
# The check of missing lists names each list of tests that could be lost without a word.
set -euo pipefail
check=$1 cmake=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# list FOLDER LINE...: the list of a folder of tests.
list() {
  mkdir -p "$work/tests/$1"
  printf '%s\n' "${@:2}" >"$work/tests/$1/CMakeLists.txt"
}

list . 'find_package(NoSuchPackage REQUIRED)' 'add_subdirectory(core)' \
  'if(LAKRESVOS_BUILD_TOOLS)' '  add_subdirectory(render)' 'endif()'
list core 'add_executable(core_tests Table_test.cpp)' 'add_subdirectory(table)'
list core/table 'target_sources(core_tests PRIVATE Store_test.cpp)'
list render 'find_program(program no_such_program REQUIRED)' 'add_test(NAME render COMMAND ${program})'
list package/consumer 'project(consumer)'
"$check" "$cmake" "$work/tests"

list core/layout 'target_sources(core_tests PRIVATE Places_test.cpp)'
list tools/report/cli 'add_executable(cli_tests Options_test.cpp)'
list tools/report 'file(GLOB lists */CMakeLists.txt)' 'foreach(list ${lists})' \
  '  get_filename_component(folder ${list} DIRECTORY)' '  add_subdirectory(${folder})' 'endforeach()'
list tabulate 'include(${CMAKE_CURRENT_SOURCE_DIR}/data/CMakeLists.txt OPTIONAL)'
list tabulate/data 'target_sources(tabulate_tests PRIVATE Number_test.cpp)'
list . 'add_subdirectory(core)' 'add_subdirectory(render)' 'add_subdirectory(tools/report)' \
  'if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/tabulate/CMakeLists.txt)' '  add_subdirectory(tabulate)' \
  'endif()'
if "$check" "$cmake" "$work/tests" 2>"$work/found"; then
  echo "nothing was found"
  exit 1
fi
diff - "$work/found" <<'TEXT'
nobody misses tests/core/layout/CMakeLists.txt
nobody misses tests/tabulate/CMakeLists.txt
nobody misses tests/tabulate/data/CMakeLists.txt
nobody misses tests/tools/report/cli/CMakeLists.txt
TEXT
