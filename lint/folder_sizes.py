#!/usr/bin/env -S python3 -B
"""Names each folder that holds more sources than a reader can survey, its subfolders aside.

usage: folder_sizes.py [ROOT]     ROOT is a Git checkout, by default the current folder
"""

from collections import Counter

import sources

MAX_FILES = 30
SUFFIXES = (".h", ".cpp", ".py", ".mjs", ".js", ".css", ".sh", ".cmake", ".in")


def faults(root):
    sizes = Counter(file.parent for file in sources.tracked(root, SUFFIXES))
    for folder, size in sorted(sizes.items()):
        if size > MAX_FILES:
            yield f"{folder}: {size} sources, at most {MAX_FILES} in one folder"


if __name__ == "__main__":
    sources.report(faults)
