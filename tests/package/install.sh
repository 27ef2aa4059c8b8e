#!/usr/bin/env bash
# Installs the package and builds programs with it, through CMake and through pkg-config.
set -euo pipefail
cmake=$1 build=$2 compiler=$3 flags=$4 version=$5
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

# The libraries may need what the flags bring along, such as the runtime of a sanitizer.
configure() { # configure NAME OPTION...
  "$cmake" -G Ninja -S "$here/consumer" -B "$work/$1" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_PREFIX_PATH="$work/prefix" "${@:2}" >"$work/$1.log" 2>&1
}

"$cmake" --install "$build" --prefix "$work/prefix" >/dev/null
configure consumer || fail "$(cat "$work/consumer.log")"
"$cmake" --build "$work/consumer" >/dev/null
"$work/consumer/consumer" | grep -qx Output

# Before 1.0, versions that differ in the minor number do not stand for one another.
IFS=. read -r major minor _ <<<"$version"
configure "same" -DWANTED="$major.$minor" || fail "$version is no $major.$minor"
configure "next" -DWANTED="$major.$((minor + 1))" && fail "$version is taken for a later version"
if ((major == 0 && minor > 0)); then
  configure "before" -DWANTED="$major.$((minor - 1))" && fail "$version is taken for 0.$((minor - 1))"
fi

# Builds and runs a program with each library through the pkg-config of a prefix.
check_packages() { # check_packages PREFIX
  local prefix=$1 packages library name package found word folder
  local -a options words
  read -ra options <<<"$flags"
  packages=$(find "$prefix" -name pkgconfig)
  export PKG_CONFIG_PATH=$packages LD_LIBRARY_PATH=$packages/..
  for library in "$packages"/../liblakresvos*.so; do
    name=$(basename "$library" .so)
    name=${name#lib}
    package=${name//_/-}
    found=$(pkg-config --cflags --libs "$package") || fail "pkg-config finds no $package"
    read -ra words <<<"$found"
    [[ " ${words[*]} " == *" -l$name "* ]] || fail "$package does not link $name: ${words[*]}"
    for word in "${words[@]}"; do
      case $word in
        -[IL]*)
          folder=$(realpath -e "${word:2}") || fail "$package: $word does not exist"
          [[ $folder == "$(realpath "$prefix")"/* ]] || fail "$package: $word is somewhere else"
          ;;
      esac
    done
    "$compiler" -std=c++17 "${options[@]}" "$here/consumer/$package.cpp" -o "$work/$package" \
      "${words[@]}"
    "$work/$package" | grep -qx Output || fail "$package: the program does not run"
  done
}

check_packages "$work/prefix"
mv "$work/prefix" "$work/moved"  # the whole prefix may move
check_packages "$work/moved"
