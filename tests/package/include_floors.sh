#!/usr/bin/env bash
# The check of the floors lets through what points down, and names the line of what does not.
set -euo pipefail
check=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
git init --quiet "$work"
cd "$work"

# file FILE LINE...: a source of these lines.
file() {
  mkdir -p "$(dirname "$1")"
  printf '%s\n' "${@:2}" >"$1"
}

file include/lakresvos/OmTable.h
file include/lakresvos/OmVectorTree.h
file cells/include/cells/OmCell.h
file codepage/src/Utf8.h
file tools/report/Utf8.h
file core/table/Store.h
file render/include/lakresvos/render/Text.h
file render/src/grid/Grid.h
file render/src/Flat.h
file tabulate/include/lakresvos/tabulate/Tabulate.h
file tools/report/style/Style.h
file tests/support/Spy.h

file cells/src/Composite.cpp '#include <lakresvos/OmVectorTree.h>' '#include "Utf8.h"'
file core/layout/Places.cpp '#include "table/Store.h"' '#include "../table/Store.h"' \
  '#include <cells/OmCell.h>' '#include <vector>' '#include "Generated.h"'
file render/src/text/Text.cpp '#include <lakresvos/render/Text.h>' '#include "grid/Grid.h"' \
  '#include "Flat.h"' '#include <lakresvos/OmTable.h>'
file tools/report/cli/Program.cpp '#include "style/Style.h"' '#include <lakresvos/render/Text.h>' \
  '#include <lakresvos/tabulate/Tabulate.h>'
file tests/render/Text_test.cpp '#include "grid/Grid.h"' '#include "core/table/Store.h"'
"$check" .

file cells/src/Upward.cpp '' '#include <lakresvos/OmTable.h>'
file codepage/src/Beside.cpp '#include <cells/OmCell.h>'
file core/layout/Upward.cpp '  #  include "lakresvos/render/Text.h"'
file misplaced/Odd.h
file render/src/Beside.cpp '#include <lakresvos/tabulate/Tabulate.h>'
file render/src/Private.cpp '#include "table/Store.h"' '#include "core/table/Store.h"' \
  '#include "../../core/table/Store.h"'
file tabulate/src/Beside.cpp '#include <lakresvos/render/Text.h>'
file tools/report/Private.cpp '#include "grid/Grid.h"' '#include "support/Spy.h"' \
  '#include "tests/support/Spy.h"'
if "$check" . 2>found; then
  echo "nothing was found"
  exit 1
fi
diff - found <<'TEXT'
cells/src/Upward.cpp:2: cells may not include 'include/lakresvos/OmTable.h'
codepage/src/Beside.cpp:1: codepage may not include 'cells/include/cells/OmCell.h'
core/layout/Upward.cpp:1: core may not include 'render/include/lakresvos/render/Text.h'
misplaced/Odd.h: on no floor
render/src/Beside.cpp:1: render may not include 'tabulate/include/lakresvos/tabulate/Tabulate.h'
render/src/Private.cpp:1: 'core/table/Store.h' is private to core
render/src/Private.cpp:2: 'core/table/Store.h' is private to core
render/src/Private.cpp:3: 'core/table/Store.h' is private to core
tabulate/src/Beside.cpp:1: tabulate may not include 'render/include/lakresvos/render/Text.h'
tools/report/Private.cpp:1: 'render/src/grid/Grid.h' is private to render
tools/report/Private.cpp:2: tools may not include 'tests/support/Spy.h'
tools/report/Private.cpp:3: tools may not include 'tests/support/Spy.h'
TEXT
