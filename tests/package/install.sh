#!/usr/bin/env bash
# Installs the package and builds a program with it, through CMake and through pkg-config.
set -euo pipefail
cmake=$1 build=$2 compiler=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/prefix" >/dev/null
"$cmake" -G Ninja -S "$here/consumer" -B "$work/consumer" -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
"$cmake" --build "$work/consumer" >/dev/null
"$work/consumer/consumer" | grep -qx Output

config=$(find "$work/prefix" -name lakresvos.pc -printf '%h\n')
flags=$(PKG_CONFIG_PATH=$config pkg-config --define-variable=prefix="$work/prefix" --cflags --libs lakresvos)
read -ra words <<<"$flags"
"$compiler" -std=c++17 "$here/consumer/consumer.cpp" -o "$work/by_pkg_config" "${words[@]}"
LD_LIBRARY_PATH=$(dirname "$config") "$work/by_pkg_config" | grep -qx Output
