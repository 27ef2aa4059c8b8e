"""What the checks of this folder look at, and how they report."""

import subprocess
import sys
from pathlib import Path, PurePosixPath


def tracked(root, suffixes):
    """The files below `root` with one of the suffixes that Git knows or would add, in order."""
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True, text=True).stdout
    files = (PurePosixPath(name) for name in listed.split("\0") if name)
    chosen = (file for file in files if file.suffix in suffixes and (root / file).exists())
    return dict.fromkeys(sorted(chosen))


def report(faults):
    """Prints the faults of the root on the command line, one a line; exits with 1 if there is one."""
    found = list(faults(Path(sys.argv[1] if len(sys.argv) > 1 else ".")))
    for fault in found:
        print(fault, file=sys.stderr)
    sys.exit(1 if found else 0)
