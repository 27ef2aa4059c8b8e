#!/usr/bin/env -S python3 -B
"""On a tiny library, the script tells the mutants that its tests notice from those that they miss."""

import fcntl
import json
import subprocess
import sys
import tempfile
import time
import unittest
import unittest.mock
from pathlib import Path

import mutants
import results
import scratch
import session

HERE = Path(__file__).resolve().parent
FILES = {
    "CMakeLists.txt": """
        cmake_minimum_required(VERSION 3.25)
        project(tiny LANGUAGES CXX)
        set(CMAKE_CXX_STANDARD 20)
        set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
        find_package(GTest REQUIRED)
        add_subdirectory(tests)
        """,
    "tests/CMakeLists.txt": """
        add_executable(fee_tests ../core/Fee.cpp Fee_test.cpp)
        target_include_directories(fee_tests PRIVATE ../core)
        target_link_libraries(fee_tests PRIVATE GTest::gtest_main)
        """,
    "core/Fee.h": """
        int Fee(int weight);
        int Refund(int weight);
        long Length(char const* begin, char const* end);
        int Checked(int weight);
        """,
    "core/Fee.cpp": """
        #include "Fee.h"
        namespace {
        constexpr int kUnused = 7;  // 1 + 1 < 3
        }
        int Fee(int weight) {
          return weight > 20 ? 9 : 4;
        }
        int Refund(int weight) {
          return -Fee(weight);
        }
        long Length(char const* begin, char const* end) {
          return end - begin;
        }
        int Checked(int weight) {
          if (weight < 0) {
            throw weight;
          }
          return weight;
        }
        """,
    "tests/Fee_test.cpp": """
        #include "Fee.h"
        #include <gtest/gtest.h>
        TEST(Fee, IsLowForLightParcels) { EXPECT_EQ(Fee(1), 4); }
        TEST(Fee, IsHighForHeavyParcels) { EXPECT_EQ(Fee(50), 9); }
        TEST(Checked, RefusesNegativeWeights) { EXPECT_THROW(Checked(-1), int); }
        """,
    "docs/reliability.md": """
        | place | change | why no test can tell |
        |---|---|---|
        | `core/Fee.cpp: Fee` | `weight > 20` becomes `weight >= 20` | parcels never weigh 20 |
        | `core/Other.cpp: Fee` | 20 becomes 21 in `return weight > 20 ? 9 : 4;` | another file |
        """,
}


class MutateTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name, text in FILES.items():
            self.write(name, "\n".join(line.removeprefix(8 * " ") for line in text.strip().splitlines()))
        self.write("CMakePresets.json", json.dumps(
            {"version": 6, "include": [str(HERE.parents[1] / "CMakePresets.json")]}))
        self.write(".gitignore", "/build/")
        subprocess.run(["git", "init", "--quiet", self.root], check=True)

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text + "\n", encoding="utf-8")

    def run_script(self, *options):
        return subprocess.run([sys.executable, "-B", HERE / "mutate.py", "--root", self.root,
                               "--jobs", "1", *options],
                              capture_output=True, text=True)

    def mutate(self, *options, status=0):
        run = self.run_script(*options)
        self.assertEqual(run.returncode, status, run.stdout + run.stderr)
        return run.stdout

    def outcomes(self):
        file = self.root / results.FILE
        return {name.removeprefix("core/Fee.cpp:"): entry["outcome"]
                for name, entry in json.loads(file.read_text("utf-8")).items()}

    def test_mutants_are_made_where_the_code_is(self):
        listed = self.mutate("--list", "1000")
        self.assertIn("core/Fee.cpp:6:17:to-ge", listed)
        self.assertNotIn("core/Fee.cpp:1:", listed)
        self.assertIn("core/Fee.cpp:3:25:one-more", listed)
        self.assertNotIn("core/Fee.cpp:3:3", listed)
        self.assertNotIn("core/Fee.h", listed)

        shown = self.mutate("--show", "core/Fee.cpp:6:17:to-ge")
        self.assertIn("-  return weight > 20 ? 9 : 4;\n+  return weight >= 20 ? 9 : 4;\n", shown)

    def test_a_second_run_at_a_time_is_refused(self):
        folder = self.root / "build" / "mutation"
        folder.mkdir(parents=True)
        with open(folder / "lock", "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            run = self.run_script("--list", "1")
        self.assertEqual(run.returncode, 1, run.stdout)
        self.assertEqual(run.stderr, f"./dev mutate: another run is at work in {folder}\n")
        self.assertIn("core/Fee.cpp", self.mutate("--list", "1"))

    def test_killed_and_surviving_mutants_are_told_apart(self):
        report = self.mutate("1000", status=1)
        outcomes = self.outcomes()
        self.assertEqual(outcomes["6:17:to-le"], "killed")
        self.assertEqual(outcomes["6:24:one-more"], "killed")
        self.assertEqual(outcomes["6:17:to-ge"], "survived")
        self.assertEqual(outcomes["6:19:one-more"], "survived")
        self.assertEqual(outcomes["9:10:no-sign"], "survived")
        self.assertEqual(outcomes["3:25:one-more"], "same code")
        self.assertEqual(outcomes["12:14:to-plus"], "does not compile")
        self.assertEqual(outcomes["16:5:drop"], "killed")

        self.assertIn("core/Fee.cpp:9:10:no-sign survived: no test runs it", report)
        self.assertIn("core/Fee.cpp:6:19:one-more survived: 2 tests run it", report)
        self.assertIn("-  return weight > 20 ? 9 : 4;\n+  return weight > 21 ? 9 : 4;\n", report)
        self.assertNotIn("core/Fee.cpp:6:17:to-ge survived:", report)
        self.assertIn("\n1 explained by | `core/Fee.cpp: Fee` | `weight > 20` becomes `weight >= 20` |\n",
                      report)
        self.assertIn("survivors: 1 explained, ", report)

        # What is known is not tried again, until there are other tests.
        self.assertNotIn("killed  ", self.mutate("1000", status=1))
        test = FILES["tests/Fee_test.cpp"].strip().replace(8 * " ", "")
        self.write("tests/Fee_test.cpp", test + "\nTEST(Fee, IsHighFrom21) { EXPECT_EQ(Fee(21), 9); }")
        self.assertIn("killed           core/Fee.cpp:6:19:one-more  fee_tests Fee.IsHighFrom21",
                      self.mutate("--in", "core", "--only", "core/Fee.cpp:6:19:one-more"))

        # But what a test killed that is gone.
        self.write("tests/Fee_test.cpp", test.replace("IsHighForHeavyParcels", "IsHigh"))
        again = self.mutate("1000", status=1)
        self.assertIn("killed           core/Fee.cpp:6:24:one-more  fee_tests Fee.IsHigh\n", again)
        self.assertNotIn("core/Fee.cpp:6:17:to-le", again)


class SlowTest(unittest.TestCase):
    MUTANT = mutants.Mutant("Fee.cpp", 1, 1, "drop", 0, 1, "", "Fee", "`f` dropped")
    SLOW = (results.KILLED, "some_tests Some.Test (too slow)",
            session.Killer("tests/some_tests", "Some.Test", True))

    def run_with(self, *outcomes):
        """Runs a mutant with these outcomes in turn, and gives the entry in the results."""
        folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (folder / "Fee.cpp").write_text("f;", encoding="utf-8")
        run = object.__new__(session.Session)
        run.root, run.jobs, run.trees, run.tests = folder, 1, [unittest.mock.Mock()], ""
        run.contents, run.slow, run.results = {}, [], results.Results(folder / "results.json")
        run._outcome = unittest.mock.Mock(side_effect=outcomes)
        run.run([self.MUTANT])
        self.assertEqual(run._outcome.call_count, len(outcomes))
        return run.results.entries[self.MUTANT.id]

    def test_a_mutant_that_is_too_slow_is_tried_again(self):
        entry = self.run_with(self.SLOW, (results.SURVIVED, "1 tests run it", None))
        self.assertEqual(entry["outcome"], results.SURVIVED)

    def test_a_mutant_that_is_too_slow_alone_is_killed(self):
        entry = self.run_with(self.SLOW, self.SLOW)
        self.assertEqual(entry["outcome"], results.KILLED)
        self.assertEqual(entry["killer"], ["tests/some_tests", "Some.Test"])


class RunTestsTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def run_tests(self, script, seconds):
        program = self.folder / "some_tests"
        program.write_text(f"#!/bin/sh\necho '[ RUN      ] Some.Test'\n{script}\n", encoding="utf-8")
        program.chmod(0o755)
        return scratch.run_tests(program, None, seconds, self.folder / "notes.log")

    def test_a_test_that_does_not_end_has_failed_and_ends_with_what_it_started(self):
        mark = self.folder / "alive"
        outcome = self.run_tests(f"(sleep 1; touch {mark}) & sleep 60", 0.3)
        self.assertEqual((outcome.failed, outcome.slow), ("Some.Test", True))
        time.sleep(1)
        self.assertFalse(mark.exists())

    def test_a_test_that_crashes_has_failed(self):
        outcome = self.run_tests("kill -SEGV $$", 60)
        self.assertEqual((outcome.failed, outcome.slow), ("Some.Test", False))

    def test_tests_pass(self):
        self.assertIsNone(self.run_tests("exit 0", 60).failed)


if __name__ == "__main__":
    unittest.main()
