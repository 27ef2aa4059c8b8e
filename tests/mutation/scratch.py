"""A copy of the sources with a build of its own, in which mutants are made and tests are run."""

import hashlib
import json
import os
import re
import shlex
import signal
import subprocess
import threading
from pathlib import Path

PRESET = "mutation"
ASIDE = ".aside"
NO_TEST = "before the first test"
MEMORY = 6 * 2**30  # bytes of addresses, for one run of a test program


def sources(root):
    """The files below `root` that Git knows or would add."""
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True, text=True).stdout
    return sorted({name for name in listed.split("\0") if name and (root / name).is_file()})


def digest(root, names):
    total = hashlib.sha256()
    for name in names:
        total.update(name.encode() + b"\0" + hashlib.sha256((root / name).read_bytes()).digest())
    return total.digest()


def test_programs(build):
    """The test programs of a build, as they are called in it."""
    return sorted(str(file.relative_to(build)) for file in (build / "tests").rglob("*_test*")
                  if file.is_file() and os.access(file, os.X_OK) and not file.suffix)


class Outcome:
    """How a run of tests ended: `failed` names the test that failed, and is None when all passed."""

    def __init__(self, failed, slow=False):
        self.failed, self.slow = failed, slow


class Ended(Exception):
    """The runs of tests were told to end, which says nothing about the tests."""


running = set()
ending = threading.Event()


def end(process):
    """Ends a run of tests and what it started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def end_all():
    ending.set()
    for process in list(running):
        end(process)


def run_tests(program, tests, seconds, notes, environment=None, keep_going=False):
    """Runs the named tests of a program, or all for None, up to the first that fails.

    A test that takes too long or too much memory fails; what it started ends with it.
    """
    options = notes.with_suffix(".flags")
    options.write_text("" if tests is None else "--gtest_filter=" + ":".join(tests) + "\n",
                       encoding="utf-8")
    command = ["prlimit", f"--as={MEMORY}", "--core=0", str(program), f"--gtest_flagfile={options}",
               "--gtest_color=no"] + ([] if keep_going else ["--gtest_fail_fast"])
    with open(notes, "wb") as output:
        process = subprocess.Popen(command, cwd=program.parent, stdin=subprocess.DEVNULL, stdout=output,
                                   stderr=output, start_new_session=True,
                                   env=os.environ | (environment or {}))
        running.add(process)
        try:
            status, slow = process.wait(seconds), False
        except subprocess.TimeoutExpired:
            status, slow = -signal.SIGKILL, True
        finally:
            end(process)
            running.discard(process)
    if ending.is_set():
        raise Ended
    if status == 0:
        return Outcome(None)
    text = notes.read_text(encoding="utf-8", errors="replace")
    failed = re.findall(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", text, re.MULTILINE)
    begun = re.findall(r"^\[ RUN      \] ([\w/]+\.[\w/]+)", text, re.MULTILINE)
    if keep_going and failed and not slow:
        return Outcome(sorted(set(failed)))
    return Outcome((failed or begun[-1:] or [NO_TEST])[0], slow)


def output_of(command):
    words = shlex.split(command)
    return words[words.index("-o") + 1]


class Tree:
    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.build_folder = folder / "build" / PRESET
        self.notes = folder.with_suffix(".log")
        self.commands, self.users, self.linked = {}, {}, {}
        self.mutated, self.original, self.compiled = None, b"", {}

    # The sources as they are

    def configure(self):
        """Makes the copy equal to the sources, and its build ready."""
        self._refresh()
        self._call(["cmake", "--preset", PRESET, "--log-level=WARNING"], stdout=subprocess.DEVNULL)
        listed = json.loads((self.build_folder / "compile_commands.json").read_text("utf-8"))
        self.commands = {output_of(command["command"]): command for command in listed}

    def build(self, targets):
        self._call(["cmake", "--build", "--preset", PRESET, "--target", *targets])
        self.users = self._find_users()
        self.linked = {product: self._objects_of(product) for product in self._find_linked()}

    def _refresh(self):
        """What did not change keeps its age."""
        names = sources(self.root)
        self.folder.mkdir(parents=True, exist_ok=True)
        for name in names:
            original, copy = self.root / name, self.folder / name
            if not copy.exists() or copy.read_bytes() != original.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(original.read_bytes())
                copy.chmod(original.stat().st_mode)
        kept = set(names)
        for name in self._copied():
            if name not in kept:
                (self.folder / name).unlink()
        for aside in self.build_folder.rglob("*" + ASIDE):
            aside.rename(aside.with_suffix(""))
            aside.with_suffix("").touch()

    def _copied(self):
        for folder, folders, files in os.walk(self.folder):
            if Path(folder) == self.folder:
                folders[:] = [name for name in folders if name != "build"]
            for name in files:
                yield str((Path(folder) / name).relative_to(self.folder))

    def _call(self, command, **options):
        # Trees share what the compiler made of the same source.
        environment = {"CCACHE_BASEDIR": str(self.folder), "CCACHE_NOHASHDIR": "1"}
        subprocess.run(command, check=True, cwd=self.folder, env=os.environ | environment, **options)

    def _ninja(self, *arguments):
        return subprocess.run(["ninja", "-C", self.build_folder, *arguments], check=True,
                              capture_output=True, text=True).stdout

    def _find_users(self):
        """The objects that each source of the copy is compiled into: file -> objects."""
        users, output = {}, ""
        for line in self._ninja("-t", "deps").splitlines():
            if line.startswith("    "):
                file = os.path.normpath(self.build_folder / line.strip())
                if file.startswith(str(self.folder)) and output in self.commands:
                    users.setdefault(os.path.relpath(file, self.folder), set()).add(output)
            elif line:
                output = line.split(": #deps")[0]
        return users

    def _find_linked(self):
        """The programs and libraries that are built, as they are called in the build."""
        targets = re.findall(r"^(.+): \w+_LINKER_", self._ninja("-t", "targets", "all"), re.MULTILINE)
        return [name for name in targets if (self.build_folder / name).exists()]

    def _objects_of(self, product):
        """What is linked into a product and the libraries that it loads."""
        return {line for line in self._ninja("-t", "inputs", product).splitlines()
                if line in self.commands}

    # Mutants. The build never learns of them: their source and objects seem as old as the originals,
    # and what is linked from those is gone, to be linked again when it is wanted.

    def put(self, mutant):
        self.mutated = self.folder / mutant.file
        self.original = self.mutated.read_bytes()
        self._overwrite(mutant.apply(self.original))

    def _overwrite(self, content):
        age = self.mutated.stat()
        self.mutated.write_bytes(content)
        self._take_age(self.mutated, age)

    @staticmethod
    def _take_age(file, age):
        os.utime(file, ns=(age.st_atime_ns, age.st_mtime_ns))

    def compile(self, outputs):
        """Compiles what is not compiled of the mutant yet; False when something cannot be."""
        for output in sorted(set(outputs) - set(self.compiled)):
            built = self.build_folder / output
            built.rename(str(built) + ASIDE)
            self.compiled[output] = False
            self._drop_linked(output)
            command = self.commands[output]
            # What mutants compile to is never wanted again.
            with open(self.notes, "wb") as notes:
                if subprocess.run(command["command"], shell=True, cwd=command["directory"],
                                  stdout=notes, stderr=notes,
                                  env=os.environ | {"CCACHE_DISABLE": "1"}).returncode != 0:
                    return False
            aside = Path(str(built) + ASIDE)
            self.compiled[output] = built.read_bytes() != aside.read_bytes()
            self._take_age(built, aside.stat())
        return True

    def _drop_linked(self, output):
        for product, objects in self.linked.items():
            if output in objects:
                (self.build_folder / product).unlink(missing_ok=True)

    def differs(self, outputs):
        """Whether any of the objects came out other than from the source as it was."""
        return any(self.compiled.get(output, False) for output in outputs)

    def link(self, program):
        with open(self.notes, "wb") as notes:
            return subprocess.run(["ninja", "-C", self.build_folder, "-j1", program], stdout=notes,
                                  stderr=notes).returncode == 0

    def take_back(self):
        self._overwrite(self.original)
        for output in self.compiled:
            built = self.build_folder / output
            Path(str(built) + ASIDE).rename(built)
            self._drop_linked(output)
        self.compiled = {}
