#!/usr/bin/env -S python3 -B
"""Runs the fuzz targets that the preset `fuzz` builds, and says what came of it. Inputs that take long are
tried again with the programs that the preset `release` builds.

usage: run.py [SECONDS] [TARGET]... [--jobs N]   looks for inputs that break something
       run.py --merge [TARGET]...                takes what was found into fuzz/corpus/
       run.py --coverage [TARGET]...             counts the lines that all inputs reach, with the
                                                 programs that the preset `coverage` builds

Each target works on build/fuzz/corpus/TARGET, which grows from run to run, and on fuzz/corpus/TARGET.
The exit status is 1 when an input breaks something; build/fuzz/findings/TARGET has it then.
"""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/fuzz"
RELEASE_BUILD = ROOT / "build/release"
COVERAGE_BUILD = ROOT / "build/coverage"
KEPT = ROOT / "fuzz/corpus"
MOST_KEPT = 2_000_000  # bytes, of all targets together

LONGEST_INPUT = 4096
SECONDS_WITH_SANITIZERS = 10
MEGABYTES_IN_ONE_PIECE = 64 + LONGEST_INPUT // 1024
MEGABYTES_OF_THE_PROCESS = 2048

ENVIRONMENT = {
    **os.environ,
    "ASAN_OPTIONS": "detect_stack_use_after_return=1:strict_string_checks=1",
    "LSAN_OPTIONS": f"suppressions={ROOT}/tests/lsan.supp:print_suppressions=0",
    "UBSAN_OPTIONS": "print_stacktrace=1",
}

# What libFuzzer calls an input that it found. The others have names that say what was wrong.
FOUND = re.compile(r"[0-9a-f]{40}")


# The sources that a target in a folder is about.
SUBJECTS = {
    "cells": ("cells/",),
    "codepage": ("codepage/",),
    "core": ("core/", "include/"),
    "tabulate": ("tabulate/",),
    "render": ("render/",),
    "tools": ("tools/",),
}


class Target:
    def __init__(self, source):
        self.folder = source.relative_to(ROOT / "fuzz").parts[0]
        self.name = source.name.removesuffix("_fuzz.cpp")
        self.program = BUILD / "fuzz" / f"{self.name}_fuzz"
        self.dictionary = source.with_name(f"{self.name}.dict")
        self.grown = BUILD / "corpus" / self.name
        self.kept = KEPT / self.name
        self.findings = BUILD / "findings" / self.name
        self.slow = BUILD / "slow" / self.name
        self.log = BUILD / "logs" / f"{self.name}.log"

    def call(self, *arguments):
        """Runs the program with its output in the log; returns its exit status."""
        for folder in (self.grown, self.kept, self.findings, self.log.parent):
            folder.mkdir(parents=True, exist_ok=True)
        command = [
            self.program, f"-max_len={LONGEST_INPUT}", f"-timeout={SECONDS_WITH_SANITIZERS}",
            f"-malloc_limit_mb={MEGABYTES_IN_ONE_PIECE}",
            f"-rss_limit_mb={MEGABYTES_OF_THE_PROCESS}",
            f"-artifact_prefix={self.findings}/", *arguments]
        with open(self.log, "wb") as log:
            return subprocess.run(command, env={**ENVIRONMENT, "LAKRESVOS_SLOW_INPUTS": str(self.slow)},
                                  stdout=log, stderr=log, check=False).returncode

    def fuzz(self, seconds):
        """Looks for inputs; returns what to tell."""
        shutil.rmtree(self.slow, ignore_errors=True)
        self.slow.mkdir(parents=True)
        dictionary = [f"-dict={self.dictionary}"] if self.dictionary.exists() else []
        status = self.call(f"-max_total_time={seconds}", "-print_final_stats=1", *dictionary,
                           self.grown, self.kept)
        for slow in self.slow.iterdir():
            if not self.is_quick_in_release(slow):
                shutil.copy(slow, self.findings / f"slow-{slow.name}")
        log = self.log.read_text(errors="replace")
        executions = re.findall(r"^stat::number_of_executed_units: +(\d+)", log, re.M)
        edges = re.findall(r"\bcov: (\d+)", log)
        return {
            "executions": executions[-1] if executions else "?",
            "edges": edges[-1] if edges else "?",
            "findings": sorted(self.findings.iterdir()),
            "status": status,
        }

    def is_quick_in_release(self, file):
        """Whether the replay, which measures processor time, finds nothing without sanitizers."""
        return subprocess.run([RELEASE_BUILD / "fuzz" / self.program.name, file], check=False,
                              stdout=subprocess.DEVNULL).returncode == 0

    def merge(self):
        """Keeps of all inputs few that reach every edge that all reach, and those with names."""
        kept = BUILD / "merged" / self.name
        shutil.rmtree(kept, ignore_errors=True)
        kept.mkdir(parents=True)
        for file in self.kept.glob("*"):
            if not FOUND.fullmatch(file.name):
                shutil.copy(file, kept)
        if self.call("-merge=1", "-use_counters=0", kept, self.kept, self.grown) != 0:
            sys.exit(f"{self.name}: the inputs could not be merged, see {self.log}")
        shutil.rmtree(self.kept)
        shutil.copytree(kept, self.kept)

    def profile(self):
        """Replays all inputs; returns the file with the counters."""
        counters = COVERAGE_BUILD / "fuzz" / f"{self.name}.profraw"
        folders = [folder for folder in (self.grown, self.kept) if folder.exists()]
        subprocess.run([self.coverage_program(), *folders], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, "LLVM_PROFILE_FILE": str(counters)})
        return counters

    def coverage_program(self):
        return COVERAGE_BUILD / "fuzz" / f"{self.name}_fuzz"


def fuzz(targets, seconds, jobs):
    with ThreadPoolExecutor(jobs) as pool:
        results = list(pool.map(lambda target: target.fuzz(seconds), targets))
    print(f"{'target':24} {'executions':>12} {'edges':>8}  findings")
    for target, result in zip(targets, results):
        files = [str(file.relative_to(ROOT)) for file in result["findings"]]
        none = f"failed, see {target.log.relative_to(ROOT)}" if result["status"] else "none"
        print(f"{target.name:24} {result['executions']:>12} {result['edges']:>8}  "
              f"{', '.join(files) or none}")
    return 1 if any(result["status"] or result["findings"] for result in results) else 0


def merge(targets):
    for target in targets:
        target.merge()
    size = sum(file.stat().st_size for file in KEPT.rglob("*") if file.is_file())
    print(f"fuzz/corpus has {size} bytes")
    if size > MOST_KEPT:
        sys.exit(f"more than the {MOST_KEPT} that the repository should hold")
    return 0


def coverage(targets):
    print(f"{'targets':24} {'lines':>8} {'reached':>8}")
    for target in targets:
        print_lines(target.name, [target], SUBJECTS[target.folder])
    for folder, subject in SUBJECTS.items():
        if together := [target for target in targets if target.folder == folder]:
            print_lines(f"all for {folder}", together, subject)
    return 0


def print_lines(label, targets, subject):
    """Prints how many lines of the subject's sources the targets reach together."""
    merged = COVERAGE_BUILD / "fuzz/merged.profdata"
    subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", merged,
                    *(target.profile() for target in targets)], check=True)
    programs = [target.coverage_program() for target in targets]
    libraries = COVERAGE_BUILD.rglob("liblakresvos*.so")
    export = subprocess.run(
        ["llvm-cov", "export", "-summary-only", f"-instr-profile={merged}", programs[0],
         *(f"-object={file}" for file in (*programs[1:], *libraries))],
        check=True, capture_output=True)
    files = json.loads(export.stdout)["data"][0]["files"]
    lines = [file["summary"]["lines"] for file in files
             if os.path.relpath(file["filename"], ROOT).startswith(subject)]
    count = sum(one["count"] for one in lines)
    reached = sum(one["covered"] for one in lines)
    print(f"{label:24} {count:8} {reached / count:8.1%}")


def main():
    parser = argparse.ArgumentParser(usage=__doc__.split("\n\n")[1].removeprefix("usage: "))
    parser.add_argument("--merge", action="store_true")
    parser.add_argument("--coverage", action="store_true")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("words", nargs="*")
    arguments = parser.parse_intermixed_args()
    words = arguments.words
    seconds = int(words.pop(0)) if words and words[0].isdigit() else 60
    targets = {target.name: target
               for target in map(Target, sorted((ROOT / "fuzz").rglob("*_fuzz.cpp")))}
    for word in words:
        if word not in targets:
            sys.exit(f"no such target: {word}; there are {', '.join(targets)}")
    chosen = [targets[word] for word in words] or list(targets.values())
    if arguments.merge:
        return merge(chosen)
    return coverage(chosen) if arguments.coverage else fuzz(chosen, seconds, arguments.jobs)


if __name__ == "__main__":
    sys.exit(main())
