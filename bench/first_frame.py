#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Start to the first painted frame, and the memory then, of Tonearm and of an empty window.

usage: first_frame.py <folder of the benchmark programs> [runs]

Needs a display, for example: xvfb-run -a bench/first_frame.py build/release/bin
"""

import pathlib
import statistics
import subprocess
import sys
import time

PROGRAMS = ("bench_first_frame_of_nothing", "bench_first_frame_of_tonearm")


def measure(program):
    started = time.time_ns()
    output = subprocess.run([program], capture_output=True, text=True, check=True).stdout
    painted, kilobytes = map(int, output.split())
    return (painted - started) / 1e6, kilobytes / 1024


def main():
    folder = pathlib.Path(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 20
    results = {name: [] for name in PROGRAMS}
    for _ in range(runs):
        for name in PROGRAMS:
            results[name].append(measure(folder / name))
    medians = [[statistics.median(column) for column in zip(*results[name])] for name in PROGRAMS]
    (bare_time, bare_memory), (time_, memory) = medians
    print(f"empty window: {bare_time:6.1f} ms  {bare_memory:6.1f} MB")
    print(f"Tonearm:      {time_:6.1f} ms  {memory:6.1f} MB")
    print(f"ratio of times {time_ / bare_time:.2f}, memory above {memory - bare_memory:.1f} MB, medians of {runs}")


if __name__ == "__main__":
    main()
