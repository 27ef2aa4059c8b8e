"""A run of the script: what there is to mutate, the builds and tests, and the mutants one by one."""

import dataclasses
import fcntl
import functools
import hashlib
import json
import queue
import sys
from concurrent.futures import ProcessPoolExecutor, ThreadPoolExecutor
from pathlib import Path

import coverage_map
import mutants
import results
import scratch

MEASURED = ("core/", "include/", "cells/", "tabulate/", "render/")
HOME_OF_HEADERS = {"include": "core"}
QUICK = 0.2  # seconds; slower tests wait until the quicker ones have passed


@dataclasses.dataclass
class Killer:
    """The test that noticed a mutant."""

    program: str
    test: str
    slow: bool  # whether it took too long

    def __str__(self):
        return f"{Path(self.program).name} {self.test}" + (" (too slow)" if self.slow else "")


def digest_of(content):
    return hashlib.sha256(content).hexdigest()


class Kept:
    """What was found out and holds as long as its key does, in a file."""

    def __init__(self, file):
        self.file = file
        self.entries = json.loads(file.read_text(encoding="utf-8")) if file.exists() else {}

    def get(self, name, key):
        entry = self.entries.get(name)
        return entry[1] if entry is not None and entry[0] == key else None

    def put(self, name, key, found):
        self.entries[name] = [key, found]

    def save(self):
        self.file.write_text(json.dumps(self.entries), encoding="utf-8")


class Session:
    """`programs` names the test programs to use; none means all."""

    def __init__(self, root, programs, jobs):
        self.root, self.jobs = root.resolve(), jobs
        self.targets = programs or ["all"]
        self.folder = self.root / "build" / "mutation"
        self.folder.mkdir(parents=True, exist_ok=True)
        self.lock = self._lock()
        self.trees = [scratch.Tree(self.root, self.folder / f"tree-{k}") for k in range(self.jobs)]
        self.sources = [name for name in scratch.sources(self.root) if name != results.FILE]
        self.contents = {}
        self.results = results.Results(self.root / results.FILE)
        self.tests = digest_of(" ".join(self.targets).encode() + scratch.digest(
            self.root, [name for name in self.sources if name.startswith("tests/")]))[:16]
        self.programs, self.makers, self.broken, self.slow = [], {}, {}, []

    def _lock(self):
        """Keeps other runs away, for each makes the copies equal to the sources when it starts."""
        lock = open(self.folder / "lock", "w", encoding="utf-8")
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit(f"./dev mutate: another run is at work in {self.folder}")
        return lock

    # What there is to choose from

    def candidates(self, places):
        """The mutants of all measured sources below the places."""
        tree = self.trees[0]
        tree.configure()
        wanted = [place.rstrip("/") for place in places]
        files = [name for name in self.sources
                 if name.startswith(MEASURED) and name.endswith(mutants.SUFFIXES)
                 and (not wanted or any(name == place or name.startswith(place + "/")
                                        for place in wanted))]
        if not files:
            sys.exit(f"./dev mutate: no sources in {' '.join(places)}")
        kept = Kept(self.folder / "mutants.json")
        keys = {file: digest_of(self.source(file) + Path(mutants.__file__).read_bytes()) for file in files}
        missing = [file for file in files if kept.get(file, keys[file]) is None]
        search = functools.partial(mutants.find, tree.folder, commands=list(tree.commands.values()))
        with ProcessPoolExecutor(self.jobs) as pool:
            for file, found in zip(missing, pool.map(search, missing)):
                kept.put(file, keys[file], [dataclasses.asdict(mutant) for mutant in found])
        kept.save()
        return [mutants.Mutant(**fields) for file in files for fields in kept.get(file, keys[file])]

    def source(self, file):
        """The file as it was at first, whatever becomes of it during the run."""
        if file not in self.contents:
            self.contents[file] = (self.root / file).read_bytes()
        return self.contents[file]

    def known(self, mutant):
        return self.results.known(mutant, self._digest(mutant), self.tests, self._has_test)

    def _digest(self, mutant):
        """Tells a mutant from all others, of other states of its file too."""
        return digest_of(self.source(mutant.file) + mutant.change.encode())[:16]

    def _has_test(self, program, test):
        """Whether there is such a test, as far as these programs tell."""
        known = {one.name: one for one in self.programs}
        if program not in known:
            return bool(program) and self.targets != ["all"]
        return test == scratch.NO_TEST or test in known[program].tests

    # Builds and tests of the sources as they are

    def prepare(self):
        for tree in self.trees:
            tree.configure()
            tree.build(self.targets)
        self.programs = coverage_map.load(self.root, self.targets, self.folder / "coverage", MEASURED,
                                          self.jobs)
        self.makers = coverage_map.makers(self.root)
        state = digest_of(" ".join(self.targets).encode()
                          + scratch.digest(self.root, self.sources))
        kept = Kept(self.folder / "broken.json")
        if kept.get("tests", state) is None:
            with ThreadPoolExecutor(self.jobs) as pool:
                found = pool.map(self._broken_tests, self.programs)
            kept.put("tests", state, {program.name: tests for program, tests
                                      in zip(self.programs, found) if tests})
            kept.save()
        self.broken = kept.get("tests", state)
        for name, tests in self.broken.items():
            print(f"{name}: left out, for they fail without any mutant: {' '.join(tests)}")

    def _broken_tests(self, program):
        built = self.trees[0].build_folder / program.name
        outcome = scratch.run_tests(built, None, 1800, self.folder / f"{built.name}.log", keep_going=True)
        if outcome.failed is None:
            return []
        if isinstance(outcome.failed, str):
            sys.exit(f"./dev mutate: {program.name} ends in {outcome.failed} without any mutant")
        return outcome.failed

    # Mutants

    def run(self, chosen):
        waiting = queue.Queue()
        for mutant in chosen:
            waiting.put(mutant)

        def work(tree):
            while True:
                try:
                    mutant = waiting.get_nowait()
                except queue.Empty:
                    return
                try:
                    self._try(tree, mutant)
                except scratch.Ended:
                    return

        with ThreadPoolExecutor(self.jobs) as pool:
            workers = [pool.submit(work, tree) for tree in self.trees]
            try:
                for worker in workers:
                    worker.result()
            except BaseException:
                waiting.queue.clear()
                scratch.end_all()
                raise
        while self.slow:
            self._try(self.trees[0], self.slow.pop(), alone=True)

    def _try(self, tree, mutant, alone=False):
        """A mutant that is too slow among others may owe it to them, so it is tried again alone."""
        tree.put(mutant)
        try:
            outcome, by, killer = self._outcome(tree, mutant)
        finally:
            tree.take_back()
        if killer is not None and killer.slow and not alone:
            self.slow.append(mutant)
            return
        entry = {"outcome": outcome, "mutant": self._digest(mutant)}
        if outcome == results.SURVIVED:
            entry |= {"by": by, "tests": self.tests}
        if killer is not None:
            entry["killer"] = [killer.program, killer.test]
        self.results.add(mutant, entry)
        print(f"{outcome:16} {mutant.id}  {by}", flush=True)

    def _outcome(self, tree, mutant):
        objects = self._objects(tree, mutant)
        plan = self._plan(tree, mutant)
        if not plan:
            return self._untested(tree, objects)
        alike = True
        for program, quick, slow in plan:
            here = objects & tree.linked[program.name]
            # Code in headers is in many objects, and seldom needs those of the tests to be noticed.
            for step in partition(here):
                if not tree.compile(step):
                    return results.UNBUILT, "", None
                if not tree.differs(step):
                    continue
                alike = False
                if not tree.link(program.name):
                    return results.UNBUILT, "", None
                killer = self._killer(tree, program, quick) or self._killer(tree, program, slow)
                if killer is not None:
                    return results.KILLED, str(killer), killer
        if alike:
            return results.SAME, "", None
        count = sum(len(quick) + len(slow) for _, quick, slow in plan)
        return results.SURVIVED, f"{count} tests run it", None

    def _objects(self, tree, mutant):
        """The objects that may have code of the mutant."""
        users = tree.users.get(mutant.file, set())
        names = {name for program in self.programs for name in program.functions_at(mutant)}
        if not names or mutant.file.endswith(".cpp"):
            return users
        return users & set().union(*(self.makers.get(name, set()) for name in names)) or users

    @staticmethod
    def _untested(tree, objects):
        """No test runs it; whether it counts at all, one object tells."""
        some = sorted(objects)[:1]
        if not tree.compile(some):
            return results.UNBUILT, "", None
        if not tree.differs(some):
            return results.SAME, "", None
        return results.SURVIVED, "no test runs it", None

    @staticmethod
    def _killer(tree, program, tests):
        if not tests:
            return None
        outcome = scratch.run_tests(tree.build_folder / program.name, sorted(tests),
                                    10 + 5 * sum(tests.values()), tree.notes)
        return None if outcome.failed is None else Killer(program.name, outcome.failed, outcome.slow)

    def _plan(self, tree, mutant):
        """The programs to run, with their quick and their slow tests: first those that mirror the
        mutant's folder, then the others, each time the quickest first."""
        tests = [(program, program.tests_of(mutant)) for program in self.programs]
        if all(known is None for _, known in tests):
            # No counter stands for the place: a constant, or what the compiler works out.
            users = tree.users.get(mutant.file, set())
            tests = [(program, program.tests_of_file(mutant.file) or program.all_tests())
                     for program in self.programs if not users.isdisjoint(tree.linked[program.name])]
        home = mutant.file.split("/")[0]
        home = f"tests/{HOME_OF_HEADERS.get(home, home)}/"
        plan = []
        for program, known in tests:
            left = {test: seconds for test, seconds in (known or {}).items()
                    if test not in self.broken.get(program.name, ())}
            if left:
                plan.append((program, {test: seconds for test, seconds in left.items() if seconds <= QUICK},
                             {test: seconds for test, seconds in left.items() if seconds > QUICK}))
        return sorted(plan, key=lambda entry: (not entry[0].name.startswith(home),
                                               sum(entry[1].values()) + sum(entry[2].values())))


def partition(objects):
    """The objects of the libraries, and those of the tests."""
    tests = {name for name in objects if name.startswith("tests/")}
    return [sorted(step) for step in (objects - tests, tests) if step]
