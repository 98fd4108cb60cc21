#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Processor time and wake-ups of the idle main window.

usage: idle.py <tonearm> [seconds]

Needs a display, for example: xvfb-run -a bench/idle.py build/release/bin/tonearm
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

SETTLING_SECONDS = 5


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wake_ups(process):
    """The voluntary context switches so far of each thread that is there."""
    counts = {}
    for task in pathlib.Path(f"/proc/{process.pid}/task").iterdir():
        status = (task / "status").read_text()
        counts[task.name] = int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", status, re.MULTILINE).group(1))
    return counts


def main():
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 30
    with tempfile.TemporaryDirectory() as configuration:
        environment = dict(os.environ, XDG_CONFIG_HOME=configuration)
        process = subprocess.Popen([sys.argv[1]], env=environment)
        try:
            time.sleep(SETTLING_SECONDS)
            busy, woken = processor_seconds(process), wake_ups(process)
            time.sleep(seconds)
            busy, later = processor_seconds(process) - busy, wake_ups(process)
        finally:
            process.terminate()
            process.wait()
    # A pool's thread that has been idle for long ends meanwhile; its end counts for one.
    ended = len(woken.keys() - later.keys())
    count = ended + sum(switches - woken.get(task, 0) for task, switches in later.items())
    print(f"in {seconds} s: {busy:.2f} s of processor time, {count} wake-ups, {ended} of them threads that ended")


if __name__ == "__main__":
    main()
