"""Writes a frame of numbers with two decimals to a file with pandas, and prints how long that took and
how far it raised the peak of the process' memory.

usage: render.py csv|html|text SIDE FILE
"""

import resource
import sys
import time

import numpy
import pandas

form, side, file = sys.argv[1], int(sys.argv[2]), sys.argv[3]


def peak():
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024


frame = pandas.DataFrame(
    numpy.arange(side * side, dtype=float).reshape(side, side) * 0.37,
    index=[f"r{i}" for i in range(side)],
    columns=[f"c{i}" for i in range(side)],
)
before = peak()
start = time.perf_counter()
if form == "csv":
    frame.to_csv(file, float_format="%.2f")
elif form == "html":
    frame.to_html(file, float_format="%.2f".__mod__)
else:
    frame.to_string(file, float_format="%.2f".__mod__)
print(f"ms={(time.perf_counter() - start) * 1000}")
print(f"peak MB={peak() - before}")
