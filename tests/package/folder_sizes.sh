#!/usr/bin/env bash
# The check of the folders names one that holds too much, whatever lies below it.
set -euo pipefail
check=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
git init --quiet "$work"
cd "$work"

mkdir -p room/corner
touch room/{1..30}.cpp room/corner/{1..30}.h room/{1..9}.txt
"$check" .

touch room/corner/31.py
if "$check" . 2>found; then
  echo "nothing was found"
  exit 1
fi
echo 'room/corner: 31 sources, at most 30 in one folder' | diff - found
