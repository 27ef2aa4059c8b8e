#!/usr/bin/env -S python3 -B
"""Says how much of the sources the tests run, and what they leave out; fails when that is too much.

usage: coverage.py ROOT LINES BRANCHES

LINES is what `llvm-cov export -format=lcov` writes, BRANCHES what it writes with -format=text, for the
sources below ROOT. What a compiler makes for exceptions is no branch to either, and what it decides itself
(if constexpr) is none here. A template counts once: a line or branch of it is run when one instance runs it.
"""

import json
import os
import sys
from pathlib import Path

# Folders, and the least share of lines and of branches; None when branches do not matter.
FLOORS = {
    "core, cells, codepage and tabulation":
        (("include/", "core/", "cells/", "codepage/", "tabulate/"), 100.0, 100.0),
    "renderers": (("render/",), 98.0, None),
}


def lines_of(text, root):
    """How often each line ran: file -> line -> count."""
    files, counts = {}, {}
    for line in text.splitlines():
        key, _, value = line.partition(":")
        if key == "SF":
            counts = files.setdefault(relative(value, root), {})
        elif key == "DA":
            number, count = map(int, value.split(",")[:2])
            counts[number] = max(counts.get(number, 0), count)
    return files


def branches_of(exported, root):
    """How often each condition was true and false: file -> (line, column) -> [true, false]."""
    files = {}
    for entry in exported["data"][0]["files"]:
        decided = decided_early(Path(entry["filename"]))
        counts = files.setdefault(relative(entry["filename"], root), {})
        for line, column, _, _, taken, passed, *_ in entry["branches"]:
            if line not in decided:
                both = counts.setdefault((line, column), [0, 0])
                both[0] += taken
                both[1] += passed
    return files


def decided_early(file):
    """The lines with a condition that the compiler decides, which no test can make another."""
    if not file.exists():
        return set()
    return {number for number, line in enumerate(file.read_text(encoding="utf-8").split("\n"), 1)
            if "if constexpr (" in line}


def relative(file, root):
    return os.path.relpath(file, root)


def share(covered, total):
    return 100.0 * covered / total if total else 100.0


def missing(lines, branches, folders):
    """Where nothing ran, or a condition never was one of both."""
    for file in sorted(set(lines) | set(branches)):
        if file.startswith(folders):
            for line, count in sorted(lines.get(file, {}).items()):
                if count == 0:
                    yield f"{file}:{line}: never runs"
            for (line, column), both in sorted(branches.get(file, {}).items()):
                for count, word in zip(both, ("true", "false")):
                    if count == 0:
                        yield f"{file}:{line}:{column}: never {word}"


def report(lines, branches):
    """Lines to print, and whether everything is covered that has to be."""
    text, enough = [], True
    for floor, (folders, least_lines, least_branches) in FLOORS.items():
        ran = [count > 0 for file, counts in lines.items() if file.startswith(folders)
               for count in counts.values()]
        taken = [count > 0 for file, counts in branches.items() if file.startswith(folders)
                 for both in counts.values() for count in both]
        text += missing(lines, branches, folders)
        for what, found, least in (("lines", ran, least_lines), ("branches", taken, least_branches)):
            verdict = ""
            if least is not None:
                met = bool(found) and share(sum(found), len(found)) >= least
                enough &= met
                verdict = f", at least {least:g} % wanted" + ("" if met else ": too few")
            text.append(f"{floor}: {sum(found)} of {len(found)} {what}"
                        f" ({share(sum(found), len(found)):.2f} %){verdict}")
    return text, enough


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    root = Path(sys.argv[1]).resolve()
    text, enough = report(
        lines_of(Path(sys.argv[2]).read_text(encoding="utf-8"), root),
        branches_of(json.loads(Path(sys.argv[3]).read_text(encoding="utf-8")), root))
    print(*text, sep="\n")
    sys.exit(0 if enough else 1)
