#!/usr/bin/env bash
# A list of tests that is gone fails the configuration; the tests in it must not just be left out.
set -euo pipefail
cmake=$1 tests=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

# A project in which the lists are all that counts: nothing is looked for, and no target is made.
cat >"$work/CMakeLists.txt" <<'TEXT'
cmake_minimum_required(VERSION 3.25)
project(lists LANGUAGES NONE)
set(LAKRESVOS_BUILD_TOOLS ON)
set(LAKRESVOS_BROWSER_TESTS ON)
foreach(command include find_library find_package find_path find_program pkg_check_modules
        add_dependencies add_executable add_library add_test set_target_properties
        set_tests_properties gtest_discover_tests target_compile_definitions
        target_compile_options target_include_directories target_link_libraries target_link_options
        target_precompile_headers target_sources)
  cmake_language(EVAL CODE "function(${command})\nendfunction()")
endforeach()
add_subdirectory(tests)
TEXT
configure() { "$cmake" -S "$work" -B "$work/build" >"$work/log" 2>&1; }

cp -r "$tests" "$work/tests"
rm -rf "$work/tests/package/consumer"  # a project of its own
configure || { cat "$work/log" >&2; exit 1; }
while read -r list; do
  mv "$work/$list" "$work/away"
  if configure; then
    echo "nobody misses $list" >&2
    status=1
  fi
  mv "$work/away" "$work/$list"
done < <(cd "$work" && find tests -name CMakeLists.txt | sort)
exit $status
