#!/usr/bin/env python3
"""Fails when a binary has an object that may be written after start and is not in the list, or when
the list has one that none of the binaries has.

usage: global_objects.py LIST BINARY...
"""

import fnmatch
import re
import subprocess
import sys

WRITABLE = (".data", ".bss", ".tdata", ".tbss")
COMPILERS_OWN = re.compile(r"guard variable for |DW\.ref\.|completed\.\d+$|__dso_handle$|__TMC_END__$")


def readelf(option, binary):
    command = ["readelf", "--wide", "--demangle", option, binary]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


def writable_sections(binary):
    """The numbers of the sections that the dynamic linker does not close after start."""
    sections = (re.match(r"\s*\[\s*(\d+)\]\s+(\S+)", line) for line in readelf("--sections", binary))
    return {section[1] for section in sections if section and section[2] in WRITABLE}


def objects(binary):
    sections = writable_sections(binary)
    found = set()
    stripped = True
    for line in readelf("--symbols", binary):
        fields = line.split(maxsplit=7)
        if line.startswith("Symbol table '.symtab'"):
            stripped = False
        if len(fields) == 8 and fields[3] in ("OBJECT", "TLS") and fields[6] in sections:
            if not COMPILERS_OWN.match(fields[7]):
                found.add(fields[7])
    if stripped:
        sys.exit(f"{binary}: has no symbols, so its objects cannot be told")
    return found


def patterns(path):
    """The names in the list, which end before the last ": "."""
    with open(path, encoding="utf-8") as file:
        lines = [line.rstrip("\n") for line in file]
    return [line.rpartition(": ")[0] for line in lines if line and not line.startswith("#")]


def matches(name, pattern):
    return fnmatch.fnmatchcase(name, pattern.replace("[", "[[]"))


def main():
    listed = patterns(sys.argv[1])
    unused = set(listed)
    failed = False
    for binary in sys.argv[2:]:
        for name in sorted(objects(binary)):
            known = [pattern for pattern in listed if matches(name, pattern)]
            unused.difference_update(known)
            if not known:
                print(f"{binary}: {name[:300]} may be written after start")
                failed = True
    for pattern in sorted(unused):
        print(f"{sys.argv[1]}: no binary has {pattern}")
    return failed or bool(unused)


if __name__ == "__main__":
    sys.exit(main())
