#!/usr/bin/env -S python3 -B
"""Changes the sources in small ways, one at a time, and tells which changes no test notices.

Each mutant is built in a copy of the sources, and what tests run its place, as the coverage says, are
run up to the first that fails. A mutant that does not compile, or compiles to the same code, does not
count. What was found out is kept in tests/mutation/results.json, from where the same command goes on;
the copies and what else is made are in build/mutation.
"""

import argparse
import os
import signal
import subprocess
import sys
from pathlib import Path

import mutants
import results
from session import Session


def arguments():
    parser = argparse.ArgumentParser(prog="./dev mutate", description=__doc__.split("\n\n")[0])
    parser.add_argument("count", nargs="?", type=int, default=100, metavar="N",
                        help="how many mutants to draw (by default 100)")
    parser.add_argument("--in", dest="places", nargs="+", default=[], metavar="PATH",
                        help="draw from these folders or files only")
    parser.add_argument("--with", dest="programs", nargs="+", default=[], metavar="PROGRAM",
                        help="build and run these test programs only")
    parser.add_argument("--seed", type=int, default=1, help="draws others (by default 1)")
    parser.add_argument("--list", action="store_true", help="print what would be drawn, and stop")
    parser.add_argument("--show", metavar="ID", help="print one mutant as a patch, and stop")
    parser.add_argument("--only", metavar="ID", help="run one mutant, whatever is known about it")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="K",
                        help="copies to work in at a time (by default one for each processor)")
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parents[2],
                        help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.count < 1 or options.jobs < 1:
        parser.error("expected a number of at least 1")
    return options


def find(candidates, wanted):
    for mutant in candidates:
        if mutant.id == wanted:
            return mutant
    sys.exit(f"./dev mutate: no mutant '{wanted}'")


def main():
    """Whether a mutant survived for which there is no reason."""
    options = arguments()
    session = Session(options.root, options.programs, options.jobs)
    one = options.show or options.only
    candidates = session.candidates([one.split(":")[0]] if one else options.places)
    if one:
        drawn = [find(candidates, one)]
    else:
        drawn = mutants.drawn(candidates, options.seed)
    if options.show:
        print(drawn[0].diff(session.source(drawn[0].file)), end="")
        return False
    if options.list:
        print(*(f"{mutant.id}  {mutant.change}" for mutant in drawn[:options.count]), sep="\n")
        return False

    session.prepare()
    if options.only:
        session.run(drawn)
        chosen = drawn
    else:
        chosen = draw_and_run(session, drawn, options.count)
    reasons = results.explained(session.root / "docs" / "reliability.md")
    print(*results.report(chosen, session.results.entries, reasons, session.source), sep="\n")
    return bool(results.unexplained(chosen, session.results.entries, reasons))


def draw_and_run(session, drawn, count):
    """Takes mutants in order until `count` of them count, and gives all that were taken."""
    taken = 0
    while True:
        counted = sum(session.results.entries[mutant.id]["outcome"] in results.COUNTED
                      for mutant in drawn[:taken])
        if counted >= count or taken == len(drawn):
            return drawn[:taken]
        more = drawn[taken:taken + count - counted]
        session.run([mutant for mutant in more if session.known(mutant) is None])
        taken += len(more)


if __name__ == "__main__":
    # As an interrupt: what was started has to end, however long a mutant would run.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("./dev mutate: ended"))
    try:
        sys.exit(main())
    except subprocess.CalledProcessError as error:
        sys.exit(f"./dev mutate: {error.cmd[0]} failed")
    except KeyboardInterrupt:
        sys.exit("./dev mutate: interrupted")
