"""What became of the mutants, kept in a file that later runs resume from, on whatever machine, and the
report of it."""

import collections
import json
import re
import threading
from pathlib import Path

FILE = "tests/mutation/results.json"
KILLED, SURVIVED, UNBUILT, SAME = "killed", "survived", "does not compile", "same code"
COUNTED = (KILLED, SURVIVED)
FLOORS = {"core, cells and tabulation": ("core/", "include/", "cells/", "tabulate/"),
          "renderers": ("render/",)}
ROW = re.compile(r"^\| `([^`]*)` \| (.+?) \| ([^|]+) \|$", re.MULTILINE)


class Results:
    def __init__(self, file):
        self.file = file
        self.lock = threading.Lock()
        self.entries = json.loads(file.read_text(encoding="utf-8")) if file.exists() else {}

    def known(self, mutant, digest, tests, is_there):
        """What is known about a mutant with this digest. Those that survived are tried again when the
        tests are others, and those that were killed when the test that did it is gone: `is_there`
        tells of a program and its test."""
        entry = self.entries.get(mutant.id)
        if entry is None or entry["mutant"] != digest:
            return None
        if entry["outcome"] == SURVIVED and entry["tests"] != tests:
            return None
        if entry["outcome"] == KILLED and not is_there(*entry.get("killer", ("", ""))):
            return None
        return entry

    def add(self, mutant, entry):
        with self.lock:
            self.file.parent.mkdir(parents=True, exist_ok=True)
            self.entries[mutant.id] = entry
            new = self.file.with_suffix(".new")
            lines = (f"{json.dumps(name)}: {json.dumps(found, sort_keys=True)}"
                     for name, found in sorted(self.entries.items()))
            new.write_text("{\n" + ",\n".join(lines) + "\n}\n", encoding="utf-8")
            new.replace(self.file)


def row_of(mutant):
    """What the manual calls a mutant, wherever its line is: the place and the change."""
    outside = mutant.function == Path(mutant.file).name
    return mutant.file if outside else f"{mutant.file}: {mutant.function}", mutant.change


def table_row(place, change):
    return f"| `{place}` | {change.replace('|', chr(92) + '|')} |"


def explained(page):
    """The places and changes for which the page has a reason why no test can tell them."""
    text = page.read_text(encoding="utf-8") if page.exists() else ""
    text = text.replace(r"\|", "\0")
    return {(place, change.replace("\0", "|")) for place, change, _ in ROW.findall(text)}


def survivors(mutants, entries):
    return [mutant for mutant in mutants if entries[mutant.id]["outcome"] == SURVIVED]


def unexplained(mutants, entries, reasons):
    """The survivors without a reason."""
    return [mutant for mutant in survivors(mutants, entries) if row_of(mutant) not in reasons]


def report(mutants, entries, reasons, source_of):
    """Lines: each survivor without a reason, how many each reason is for, and the totals of each
    floor. `source_of` gives the content of a file."""
    left = unexplained(mutants, entries, reasons)
    for mutant in sorted(left, key=lambda mutant: (mutant.file, mutant.start)):
        yield f"\n{mutant.id} survived: {entries[mutant.id]['by']}"
        yield mutant.diff(source_of(mutant.file)).rstrip()
        yield table_row(*row_of(mutant))
    yield ""
    excused = collections.Counter(row_of(mutant) for mutant in survivors(mutants, entries)
                                  if row_of(mutant) in reasons)
    for row, count in sorted(excused.items()):
        yield f"{count} explained by {table_row(*row)}"
    missed = {mutant.id for mutant in left}
    floors = [*FLOORS.items()]
    floors.append(("elsewhere", tuple({mutant.file.split("/")[0] + "/" for mutant in mutants}
                                      - {folder for _, folders in floors for folder in folders})))
    for floor, folders in floors:
        here = [mutant for mutant in mutants if mutant.file.startswith(folders)]
        outcomes = [entries[mutant.id]["outcome"] for mutant in here]
        killed, survived = outcomes.count(KILLED), outcomes.count(SURVIVED)
        if not killed + survived:
            continue
        others = sum(mutant.id in missed for mutant in here)
        yield (f"{floor}: {killed} of {killed + survived} killed"
               f" ({100 * killed / (killed + survived):.1f} %); survivors: {survived - others}"
               f" explained, {others} not; not counted: {outcomes.count(UNBUILT)} that do not"
               f" compile, {outcomes.count(SAME)} that compile to the same code")
