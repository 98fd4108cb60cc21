# SPDX-License-Identifier: GPL-3.0-or-later
"""An installation for one test, moved away from where it was installed."""

import contextlib
import pathlib
import subprocess
import tempfile

ID = "example.tonearm.Tonearm"


@contextlib.contextmanager
def moved_installation(cmake, build):
    """Yields the path of its prefix, which has a blank in it."""
    with tempfile.TemporaryDirectory(prefix="tonearm-") as folder:
        first, second = pathlib.Path(folder, "first"), pathlib.Path(folder, "moved away")
        install(cmake, build, first)
        first.rename(second)
        yield second


def install(cmake, build, prefix):
    subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)


def desktop_entry(prefix):
    """The keys and values of the entry in the menu."""
    text = (prefix / "share/applications" / f"{ID}.desktop").read_text(encoding="utf-8")
    return dict(line.split("=", 1) for line in text.splitlines() if "=" in line)


def expect(holds, what):
    if not holds:
        raise AssertionError(f"expected {what}")
