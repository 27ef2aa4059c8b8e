"""What the project aims at, and how far it is from that."""

from dataclasses import dataclass

from results import table, text_of

FULL = ["100x100x100 full", "1000x1000 full"]
SPARSE = ["200x200x50x20 at 1 %", "100000x100 at 1 %"]
IN_ORDER = ["in order"]
SHUFFLED = ["shuffled"]
BOTH = IN_ORDER + SHUFFLED
DENSE, BUMP = "dense array", "bump clone"
ABSEIL, BOOST = "Abseil flat map", "Boost flat map"


@dataclass
class Target:
    """`value(workload, case)` is compared with `limit`; it is None where something was not measured."""

    text: str
    workload: str
    cases: list
    limit: float
    value: callable
    at_least: bool = False

    def measure(self, workloads):
        """The value of each case that was measured."""
        workload = workloads.get(self.workload)
        if workload is None:
            return {}
        values = {case: self.value(workload, case) for case in self.cases}
        return {case: value for case, value in values.items() if value is not None}

    def why_not(self, workloads):
        """What keeps this library from an answer is a miss; what keeps others is not."""
        if self.workload in workloads:
            for case in self.cases:
                if error := workloads[self.workload].errors[case].get("lakresvos"):
                    return f"**missed**: {error}"
        return "not measured"

    def row(self, workloads):
        bound = f"{'at least' if self.at_least else 'at most'} {self.limit:g}"
        values = self.measure(workloads)
        if len(values) < len(self.cases):
            return [self.text, bound, "-", "", self.why_not(workloads)]
        low, high = min(values, key=values.get), max(values, key=values.get)
        worst = low if self.at_least else high
        met = values[worst] >= self.limit if self.at_least else values[worst] <= self.limit
        shown = text_of(values[low])
        if text_of(values[high]) != shown:
            shown += f" to {text_of(values[high])}"
        return [self.text, bound, shown, worst if len(values) > 1 else "",
                "met" if met else "**missed**"]


def ratio(figure, ours, theirs):
    def value(workload, case):
        pair = [workload.median(case, who, figure) for who in (ours, theirs)]
        return None if None in pair else pair[0] / pair[1]
    return value


def figure(name, competitor):
    return lambda workload, case: workload.median(case, competitor, name)


def seconds_to_build_and_walk(workload, case):
    """Of a million cells: a nanosecond each is a millisecond in all."""
    parts = [workload.median(case, "lakresvos", name) for name in ("write ns", "iterate ns")]
    return None if None in parts else sum(parts) / 1000


def store(text, name, theirs, shapes, orders, limit):
    cases = [f"{shape}/{order}" for shape in shapes for order in orders]
    return Target(f"{text}, x {theirs}", "OmPivotTable", cases, limit,
                  ratio(name, "lakresvos", theirs))


def bytes_beyond(text, shapes, limit):
    cases = [f"{shape}/{order}" for shape in shapes for order in BOTH]
    return Target(f"bytes a cell beyond the cell itself, {text}", "OmPivotTable", cases, limit,
                  figure("bytes beyond", "lakresvos"))


def plain(text, workload, case, competitor, name, limit):
    return Target(text, workload, [case], limit, figure(name, competitor))


def versus(text, workload, case, ours, theirs, limit):
    return Target(f"{text}, x {theirs}", workload, [case], limit, ratio("ms", ours, theirs))


def faster(text, workload, case, ours, theirs, limit):
    return Target(f"{text}, times faster than {theirs}", workload, [case], limit,
                  ratio("ms", theirs, ours), at_least=True)


TARGETS = [
    store("random read, full", "read ns", DENSE, FULL, BOTH, 1.4),
    store("random read, full", "read ns", BOOST, FULL, BOTH, 0.75),
    store("random read at 1 %, present", "read ns", ABSEIL, SPARSE, BOTH, 1.3),
    store("random read at 1 %, absent", "absent ns", ABSEIL, SPARSE, BOTH, 2.5),
    store("write in order, full", "write ns", BUMP, FULL, IN_ORDER, 2.25),
    store("write in order, full", "write ns", BOOST, FULL, IN_ORDER, 0.3),
    store("write shuffled, full", "write ns", BOOST, FULL, SHUFFLED, 0.75),
    store("write shuffled at 1 %", "write ns", ABSEIL, SPARSE, SHUFFLED, 1.3),
    store("iterate, full", "iterate ns", DENSE, FULL, BOTH, 2),
    store("iterate at 1 %", "iterate ns", ABSEIL, SPARSE, BOTH, 0.25),
    store("destroy", "destroy ns", BUMP, FULL + SPARSE, BOTH, 3),
    bytes_beyond("full", FULL, 14),
    bytes_beyond("1 % in four dimensions", SPARSE[:1], 34),
    bytes_beyond("1 % in two dimensions", SPARSE[1:], 52),
    plain("n x n diagonal, n = 1,000,000, bytes a cell", "OmPivotTable", "diagonal/in order",
          "lakresvos", "bytes", 200),
    Target("n x n diagonal, seconds to build and walk", "OmPivotTable", ["diagonal/in order"], 1,
           seconds_to_build_and_walk),
    Target("non-empty rows, columns, layers, dense, x one walk", "OmDisplayHeadings", FULL, 0.5,
           ratio("us", "headings", "one walk")),
    Target("non-empty rows, columns, layers at 1 %, x one walk", "OmDisplayHeadings",
           ["1000x1000 at 1 %", *SPARSE], 1, ratio("us", "headings", "one walk")),
    plain("1e6 categories with `Child` in label order, ns each", "OmDimension", "1000000 categories",
          "Child", "both ns", 350),
    plain("1e6 categories with `AddNewChild`, ns each", "OmDimension", "1000000 categories",
          "AddNewChild", "both ns", 150),
    plain("1e6 items appended to a document, ns each", "OmOutputTree", "1000000 items", "lakresvos",
          "both ns", 150),
    versus("1e6-row CSV to HTML, counts", "Program", "counts", "lakresvos-report", "bare loop", 1.4),
    versus("1e6-row CSV to HTML, with a sum", "Program", "sums", "lakresvos-report", "bare loop", 1.8),
    faster("1e6-row CSV to HTML, counts", "Program", "counts", "lakresvos-report",
           "pandas crosstab", 5),
    faster("1e6-row CSV to HTML, with a sum", "Program", "sums", "lakresvos-report",
           "pandas crosstab", 3),
    *(versus(f"1e6 numbers to {form}", "Renderers", form, "lakresvos", "bare loop", 2)
      for form in ("html", "csv", "text")),
    *(faster(f"1e6 numbers to {form}", "Renderers", form, "lakresvos", "pandas", limit)
      for form, limit in (("html", 20), ("csv", 10), ("text", 10))),
    plain("start of the program, ms", "Program", "start", "lakresvos-report", "ms", 5),
    plain("shared libraries at the start", "Program", "start", "lakresvos-report", "libraries", 20),
]


def rows(workloads):
    """A row for each target. Small workloads, to try the programs out, tell nothing about them."""
    full = {name: workload for name, workload in workloads.items()
            if workload.context["quick"] == "no"}
    return [target.row(full) for target in TARGETS]


def targets_table(workloads):
    return table(["what", "target", "measured", "worst in", ""], rows(workloads))
