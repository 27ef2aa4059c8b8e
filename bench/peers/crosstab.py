"""Counts the rows of a CSV file in a table of four columns with pandas, or sums its numbers as well, and
writes the table as HTML. Prints how long that took, without the start of the interpreter.

usage: crosstab.py crosstab|categoricals counts|sums DATA.csv FILE
"""

import sys
import time

import pandas

way, what, data, file = sys.argv[1:]

start = time.perf_counter()
if way == "crosstab":
    frame = pandas.read_csv(data)
    rows, columns = [frame["a"], frame["b"]], [frame["c"], frame["d"]]
    table = pandas.crosstab(rows, columns)
    if what == "sums":
        sums = pandas.crosstab(rows, columns, values=frame["x"], aggfunc="sum")
        table = pandas.concat([table, sums], axis=1, keys=["count", "sum"])
else:
    frame = pandas.read_csv(data, dtype=dict.fromkeys("abcd", "category"))
    groups = frame.groupby(list("abcd"), observed=True)["x"]
    table = groups.size() if what == "counts" else groups.agg(["size", "sum"])
    table = table.unstack(["c", "d"])
table.to_html(file)
print(f"without start ms={(time.perf_counter() - start) * 1000}")
