#!/usr/bin/env -S python3 -B
"""Names each #include that points up or to the side, or to a private header of another library.

usage: include_floors.py [ROOT]     ROOT is a Git checkout, by default the current folder
"""

import re
from os.path import normpath
from pathlib import PurePosixPath as Path

import sources

# From the top down: a library includes itself and the public headers of the floors below its own.
FLOORS = (
    ("tests", "bench", "examples", "fuzz"),
    ("bindings",),
    ("tools",),
    ("tabulate", "render"),
    ("core",),
    ("cells", "codepage"),
)
UNCHECKED = FLOORS[0]
LEVELS = {library: level for level, floor in enumerate(FLOORS) for library in floor}

PUBLIC_FOLDERS = [Path(folder) for folder in (
    "include", "tabulate/include", "render/include", "cells/include", "codepage/include")]
# From the bottom up, so that a name that several floors have is taken for the lowest.
PRIVATE_FOLDERS = [Path(folder) for folder in (
    "codepage/src", "cells/src", "core", "render/src", "tabulate/src", "tools/report", "tests", ".")]

# A composite cell keeps its parts in the tree container, and folding case walks over UTF-8 with the
# converter's walker.
EXCEPTIONS = {"cells": [Path(header) for header in (
    "include/lakresvos/Export.h",
    "include/lakresvos/OmAssertion.h",
    "include/lakresvos/OmVector.h",
    "include/lakresvos/OmVectorTree.h",
    "include/lakresvos/OmVectorTreeWalk.h",
    "codepage/src/Utf8.h",
)]}

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def library(file):
    """The library that the file is part of; None for what is on no floor."""
    folder = file.parts[0]
    return "core" if folder == "include" else folder if folder in LEVELS else None


def resolve(name, quoted, includer, tree):
    """The file of the tree that is meant; None for what comes from the system or is generated."""
    near = includer.parents if quoted else ()
    candidates = (Path(normpath(folder / name))
                  for folder in (*near, *PUBLIC_FOLDERS, *PRIVATE_FOLDERS))
    return next((file for file in candidates if file in tree), None)


def fault(includer, included):
    """Why the one may not include the other; None when it may."""
    upper, lower = library(includer), library(included)
    if upper == lower or included in EXCEPTIONS.get(upper, ()):
        return None
    if lower is None or LEVELS[upper] >= LEVELS[lower]:
        return f"{upper} may not include '{included}'"
    if not any(folder in included.parents for folder in PUBLIC_FOLDERS):
        return f"'{included}' is private to {lower}"
    return None


def faults(root):
    tree = sources.tracked(root, (".h", ".cpp"))
    for file in tree:
        if library(file) is None:
            yield f"{file}: on no floor"
        elif library(file) not in UNCHECKED:
            lines = (root / file).read_text(encoding="utf-8").splitlines()
            for number, line in enumerate(lines, start=1):
                if include := INCLUDE.match(line):
                    quoted, angled = include.groups()
                    included = resolve(quoted or angled, quoted is not None, file, tree)
                    if included and (why := fault(file, included)):
                        yield f"{file}:{number}: {why}"


if __name__ == "__main__":
    sources.report(faults)
