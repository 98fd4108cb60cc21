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


def usage(process):
    """Processor time in seconds and voluntary context switches, all threads together."""
    folder = pathlib.Path(f"/proc/{process.pid}")
    fields = (folder / "stat").read_text().rsplit(")", 1)[1].split()
    ticks = int(fields[11]) + int(fields[12])
    switches = 0
    for task in (folder / "task").iterdir():
        status = (task / "status").read_text()
        switches += int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", status, re.MULTILINE).group(1))
    return ticks / os.sysconf("SC_CLK_TCK"), switches


def main():
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 30
    with tempfile.TemporaryDirectory() as configuration:
        environment = dict(os.environ, XDG_CONFIG_HOME=configuration)
        process = subprocess.Popen([sys.argv[1]], env=environment)
        try:
            time.sleep(SETTLING_SECONDS)
            before = usage(process)
            time.sleep(seconds)
            after = usage(process)
        finally:
            process.terminate()
            process.wait()
    print(f"in {seconds} s: {after[0] - before[0]:.2f} s of processor time, {after[1] - before[1]} wake-ups")


if __name__ == "__main__":
    main()
