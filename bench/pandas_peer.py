"""Writes a frame of numbers to a file with pandas, and prints the seconds that this took and the
process' peak memory before it, in kilobytes.

usage: pandas_peer.py csv|html SIDE FILE
"""

import resource
import sys
import time

import numpy
import pandas


def main():
    form, side, file = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    numbers = numpy.arange(side * side, dtype=float).reshape(side, side) * 0.37
    frame = pandas.DataFrame(
        numbers, index=[f"r{i}" for i in range(side)], columns=[f"c{i}" for i in range(side)]
    )
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    start = time.perf_counter()
    if form == "csv":
        frame.to_csv(file, float_format="%.2f")
    else:
        frame.to_html(file, float_format="%.2f".__mod__)
    print(time.perf_counter() - start, before)


main()
