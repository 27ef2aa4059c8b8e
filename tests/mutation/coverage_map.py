"""Which tests run which places of the sources, as the build with the preset `coverage` tells.

Each test runs alone once, and what it says about functions is kept with its program until that or a
library is built anew. Within functions, the counters of all tests of a program together tell.
"""

import hashlib
import json
import os
import re
import shutil
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import scratch

CODE_REGION = 0


class Program:
    def __init__(self, name, record):
        self.name = name
        self.tests = record["tests"]          # test -> [seconds, indexes of its functions]
        self.functions = record["functions"]  # [file, name, regions], these as llvm-cov writes them
        self.by_file = {}
        for index, (file, _, _) in enumerate(self.functions):
            self.by_file.setdefault(file, []).append(index)

    def functions_at(self, mutant):
        """The functions that the mutant's place is part of: name -> how often the place ran."""
        found = {}
        for index in self.by_file.get(mutant.file, ()):
            _, name, regions = self.functions[index]
            region = smallest(regions, mutant.line, mutant.column)
            if region is not None:
                found[name] = found.get(name, 0) + region[4]
        return found

    def tests_of(self, mutant):
        """The tests that run the mutant's place, with their seconds; None when that is unknown."""
        found = self.functions_at(mutant)
        if not found:
            return None
        if not any(found.values()):
            return {}
        wanted = {index for index in self.by_file[mutant.file] if self.functions[index][1] in found}
        return self._tests_of(wanted)

    def tests_of_file(self, file):
        """The tests that run anything in the file, with their seconds."""
        return self._tests_of(set(self.by_file.get(file, ())))

    def all_tests(self):
        return {test: seconds for test, (seconds, _) in self.tests.items()}

    def _tests_of(self, wanted):
        return {test: seconds for test, (seconds, run) in self.tests.items()
                if not wanted.isdisjoint(run)}


def smallest(regions, line, column):
    """The region that says how often the place ran; None when it is in none."""
    around = [region for region in regions
              if (region[0], region[1]) <= (line, column) < (region[2], region[3])]
    return min(around, key=lambda region: (region[2] - region[0], region[3] - region[1]), default=None)


def build(root, targets):
    for step in (["--preset", "coverage", "--log-level=WARNING"],
                 ["--build", "--preset", "coverage", "--target", *targets]):
        subprocess.run(["cmake", *step], check=True, cwd=root)


def load(root, targets, folder, measured, jobs):
    """The programs among the targets that run what is measured. `folder` keeps what was found out."""
    build(root, targets)
    built = root / "build" / "coverage"
    folder.mkdir(parents=True, exist_ok=True)
    programs = []
    for name in scratch.test_programs(built):
        if targets != ["all"] and Path(name).name not in targets:
            continue
        libraries = libraries_of(built, name)
        key = hashlib.sha256()
        for file in (built / name, *libraries):
            key.update(file.read_bytes())
        cached = folder / (name.replace("/", "-") + ".json")
        record = json.loads(cached.read_text(encoding="utf-8")) if cached.exists() else {}
        if record.get("key") != key.hexdigest():
            print(f"Finding out what the tests of {name} run", flush=True)
            record = collect(root, built / name, libraries, folder / "work", measured, jobs)
            record["key"] = key.hexdigest()
            cached.write_text(json.dumps(record), encoding="utf-8")
        programs.append(Program(name, record))
    return [program for program in programs if program.functions]


def libraries_of(built, program):
    """The libraries of the build that the program loads."""
    listed = subprocess.run(["ldd", built / program], check=True, capture_output=True, text=True).stdout
    return sorted(Path(file) for file in re.findall(rf"=> ({re.escape(str(built))}/\S+)", listed))


def makers(root):
    """The objects that have code of each function: name -> objects, as they are called in a build."""
    built = root / "build" / "coverage"
    found = {}
    for file in built.rglob("*.o"):
        output = str(file.relative_to(built))
        symbols = subprocess.run(["nm", "--format=just-symbols", file], check=True, capture_output=True,
                                 text=True).stdout
        for name in re.findall(r"^__profc_(\S+)$", symbols, re.MULTILINE):
            found.setdefault(name, set()).add(output)
    return found


def names_of_tests(program):
    listed = subprocess.run([program, "--gtest_list_tests"], check=True, capture_output=True, text=True,
                            env=os.environ | {"LLVM_PROFILE_FILE": os.devnull}).stdout
    suite = ""
    for line in listed.splitlines():
        name = line.split("#")[0].rstrip()
        if line.startswith("  "):
            if "DISABLED_" not in suite + name:
                yield suite + name.strip()
        elif name.endswith("."):
            suite = name


def collect(root, program, libraries, folder, measured, jobs):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)

    def run(numbered):
        number, test = numbered
        place = folder / str(number)
        place.mkdir()
        start = time.monotonic()
        scratch.run_tests(program, [test], 600, place / "notes.log",
                          {"LLVM_PROFILE_FILE": f"{place}/%c%m.profraw"})
        seconds = time.monotonic() - start
        merged = folder / f"{number}.profdata"
        # A process that is killed can leave a file that is empty or broken.
        raw = [file for file in place.glob("*.profraw") if file.stat().st_size > 0]
        if raw:
            subprocess.run(["llvm-profdata", "merge", "--sparse", "--failure-mode=all", "-o", merged,
                            *raw], stderr=subprocess.DEVNULL, check=False)
        shutil.rmtree(place)
        return test, seconds, functions_in(merged) if merged.exists() else set()

    tests = list(names_of_tests(program))
    with ThreadPoolExecutor(jobs) as pool:
        ran = list(pool.map(run, enumerate(tests)))
    total = folder / "all.profdata"
    subprocess.run(["llvm-profdata", "merge", "--sparse", "-o", total,
                    *folder.glob("[0-9]*.profdata")], check=True)
    exported = subprocess.run(
        ["llvm-cov", "export", program, *(f"-object={library}" for library in libraries),
         f"-instr-profile={total}", "-skip-expansions"], check=True, capture_output=True).stdout
    functions, index = [], {}
    for function in json.loads(exported)["data"][0]["functions"]:
        file = os.path.relpath(function["filenames"][0], root)
        if file.startswith(measured):
            regions = [region for region in function["regions"]
                       if region[7] == CODE_REGION and region[5] == 0]
            index.setdefault(plain(function["name"]), []).append(len(functions))
            functions.append([file, plain(function["name"]), regions])
    shutil.rmtree(folder)
    return {"functions": functions,
            "tests": {test: [round(seconds, 3),
                             sorted(number for name in names for number in index.get(name, ()))]
                      for test, seconds, names in ran}}


def functions_in(profile):
    """The functions that ran."""
    shown = subprocess.run(["llvm-profdata", "show", "--all-functions", profile], check=True,
                           capture_output=True, text=True).stdout
    return {plain(name) for name in re.findall(r"^  (\S.*):$", shown, re.MULTILINE)}


def plain(name):
    """The name without the file that the profile puts before what is local to it."""
    return name.rpartition(":")[2]
