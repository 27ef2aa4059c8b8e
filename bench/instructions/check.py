#!/usr/bin/env -S python3 -B
"""Counts the instructions of small jobs with callgrind, and compares them with the figures in a file.

usage: check.py VALGRIND PROGRAM COMPILER FIGURES [--renew]     COMPILER is its name and version

Exits with 1 when a job takes over 5 % more or fewer instructions than its figure, or has none, and with
77 when the figures were made with another compiler. With --renew, writes the file anew.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

MOST = 0.05
SKIPPED = 77
RENEW = "./dev bench --instructions"


def measure(valgrind, program):
    """The instructions of each job, in the order in which they run."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(
            [valgrind, "--tool=callgrind", "--collect-atstart=no", "--quiet",
             f"--callgrind-out-file={folder}/profile", program],
            env={"LC_ALL": "C.UTF-8", "LD_BIND_NOW": "1"}, check=True)
        profiles = sorted(Path(folder).glob("profile.*"), key=lambda file: int(file.suffix[1:]))
        texts = [file.read_text(encoding="utf-8") for file in profiles]
    jobs = {}
    for text in texts:
        job = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
        count = re.search(r"^(?:summary|totals): (\d+)", text, re.MULTILINE)
        if job and count:
            jobs[job[1]] = int(count[1])
    return jobs


def write(file, compiler, counts):
    lines = ["# The instructions of each job in jobs.cpp, and what compiled it. After a change that is",
             f"# meant to alter them: {RENEW}",
             f"compiler {compiler}"]
    lines += [f"{job} {count}" for job, count in counts.items()]
    file.write_text("\n".join(lines) + "\n", encoding="utf-8")


def read(file):
    """The compiler, and the figure of each job."""
    lines = [line for line in file.read_text(encoding="utf-8").splitlines() if line[:1] != "#"]
    entries = dict(line.split(" ", 1) for line in lines)
    compiler = entries.pop("compiler")
    return compiler, {job: int(count) for job, count in entries.items()}


def faults(counts, figures):
    for job in counts | figures:
        if job not in figures:
            yield f"{job}: {counts[job]:,} instructions, but no figure"
        elif job not in counts:
            yield f"{job}: a figure, but no such job"
        elif abs(change := counts[job] / figures[job] - 1) > MOST:
            yield (f"{job}: {counts[job]:,} instructions, {change:+.1%} beside the figure of"
                   f" {figures[job]:,}")


def main():
    valgrind, program, compiler, file, *renew = sys.argv[1:]
    file = Path(file)
    if renew:
        write(file, compiler, measure(valgrind, program))
        return 0
    known, figures = read(file)
    if known != compiler:
        print(f"The figures are for {known}, not for {compiler}.")
        return SKIPPED
    found = list(faults(measure(valgrind, program), figures))
    for fault in found:
        print(fault, file=sys.stderr)
    if found:
        print(f"At most {MOST:.0%} either way pass. If the change is meant: {RENEW}", file=sys.stderr)
    return 1 if found else 0


sys.exit(main())
