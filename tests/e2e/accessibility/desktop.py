# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop of its own for one test: a display, a session bus, folders, and an end to all of it."""

import ctypes
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

PR_SET_CHILD_SUBREAPER = 36


class Desktop:
    """To be used in a with statement, at whose end every process that it led to has gone."""

    def __enter__(self):
        # What our children leave behind comes back to us, to be ended.
        ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self._folder = tempfile.TemporaryDirectory(prefix="tonearm-")
        self.path = pathlib.Path(self._folder.name)
        try:
            self._set_up()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        _end_descendants()
        self._folder.cleanup()

    def start(self, *command):
        """Starts a program on this desktop."""
        return subprocess.Popen(command, stdin=subprocess.DEVNULL)

    def _set_up(self):
        for name in ("home", "config", "cache", "data", "run"):
            (self.path / name).mkdir(mode=0o700)
        for name in list(os.environ):
            if name.startswith(("XDG_", "QT_", "GTK_", "WAYLAND_", "DBUS_", "AT_SPI_")):
                del os.environ[name]
        os.environ.update(
            HOME=str(self.path / "home"),
            XDG_CONFIG_HOME=str(self.path / "config"),
            XDG_CACHE_HOME=str(self.path / "cache"),
            XDG_DATA_HOME=str(self.path / "data"),
            XDG_RUNTIME_DIR=str(self.path / "run"),
            LC_ALL="C.UTF-8",
            QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            # Qt's own file dialog is looked at while it goes, and Qt remarks on every row.
            QT_LOGGING_RULES="qt.accessibility.atspi.warning=false",
        )
        os.environ["DISPLAY"] = ":" + _first_line_of(
            ["Xvfb", "-displayfd", "{}", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"])
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = _first_line_of(
            ["dbus-daemon", "--session", "--nofork", "--print-address={}",
             f"--address=unix:path={self.path}/run/bus"])


def missing_programs():
    """Those that the test needs and the machine hasn't."""
    return [name for name in ("Xvfb", "dbus-daemon", "ffmpeg", "metaflac") if not shutil.which(name)]


def _first_line_of(command):
    """Starts a server; {} in its arguments is the descriptor on which it tells where it is."""
    reading, writing = os.pipe()
    subprocess.Popen([part.format(writing) for part in command], pass_fds=[writing],
                     stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as answer:
        line = answer.readline().strip()
    if not line:
        raise RuntimeError(f"{command[0]} didn't start")
    return line


def _children():
    text = pathlib.Path(f"/proc/self/task/{os.getpid()}/children").read_text()
    return [int(child) for child in text.split()]


def _end_descendants():
    """Ends our children until none is left; theirs become ours as they go."""
    asked = set()
    patience = time.monotonic() + 5
    while _reap() and _children():
        overdue = time.monotonic() > patience
        for child in _children():
            if overdue or child not in asked:
                os.kill(child, signal.SIGKILL if overdue else signal.SIGTERM)
                asked.add(child)
        time.sleep(0.02)


def _reap():
    """Takes note of the children that have ended; whether others remain."""
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
        return True
    except ChildProcessError:
        return False
