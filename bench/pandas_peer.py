"""Writes a frame of numbers to a file with pandas, as it does by itself or with two decimals, and
prints the seconds that this took and the process' peak memory before it, in kilobytes.

usage: pandas_peer.py csv|html plain|decimals SIDE FILE
"""

import resource
import sys
import time

import numpy
import pandas


def main():
    form, look, side, file = sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4]
    numbers = numpy.arange(side * side, dtype=float).reshape(side, side) * 0.37
    frame = pandas.DataFrame(
        numbers, index=[f"r{i}" for i in range(side)], columns=[f"c{i}" for i in range(side)]
    )
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    start = time.perf_counter()
    if form == "csv":
        frame.to_csv(file, float_format="%.2f" if look == "decimals" else None)
    else:
        frame.to_html(file, float_format="%.2f".__mod__ if look == "decimals" else None)
    print(time.perf_counter() - start, before)


main()
