#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starts an installed program on a desktop of its own, with a file, and looks at its window.

usage: installed_program.py <cmake> <build folder>

Ends with 77 where the machine hasn't got what that takes.
"""

import sys

import windows
from desktop import Desktop
from installation import desktop_entry, expect, moved_installation
from whole_job import prepare, why_not

CANNOT = 77
MISSING_TOOLS = "Tonearm's audio tools are missing"


def main():
    reason = why_not()
    if reason:
        print(f"This machine can't run the test: {reason}.")
        return CANNOT
    cmake, build = sys.argv[1:]
    with Desktop() as desktop, moved_installation(cmake, build) as prefix:
        source, _ = prepare(desktop.path)
        check_window(desktop, prefix, source)
        (prefix / "libexec/tonearm/ffmpeg").unlink()
        check_missing_tool(desktop, prefix)
    return 0


def check_window(desktop, prefix, source):
    """The file's chapters tell that the tools were found, and the window belongs to the entry in the menu."""
    program, reader = start(desktop, prefix, source)
    reader.find("Song title for chapter 2")
    expect(not reader.shows(MISSING_TOOLS), "nothing to be missing")
    classes = windows.classes_of("Tonearm")
    expect(desktop_entry(prefix)["StartupWMClass"] in classes, f"the window's class among {classes}")
    close(program)


def check_missing_tool(desktop, prefix):
    """The look above would see it if a tool weren't there."""
    program, reader = start(desktop, prefix)
    reader.find(MISSING_TOOLS)
    close(program)


def start(desktop, prefix, *arguments):
    program = desktop.start(prefix / "bin/tonearm", *arguments)
    # Only now: it looks for the bus as it is loaded.
    from screen_reader import ScreenReader
    return program, ScreenReader(program.pid)


def close(program):
    windows.close("Tonearm")
    expect(program.wait(timeout=60) == 0, "the program to end well")


if __name__ == "__main__":
    sys.exit(main())
