#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that each room of src/ reads and links only what its floor allows.

usage: check_floors.py <src folder> <folder of the floor programs>
"""

import pathlib
import re
import subprocess
import sys

# Lowest first; a room's folder and its floor, as in docs/ARCHITECTURE.md.
FLOORS = {
    "support": 1,
    "workflow/records": 2,
    "app/settings": 2,
    "tools": 3,
    "encoding": 4,
    "web": 4,
    "artwork": 4,
    "metadata": 4,
    "disc": 4,
    "cddafs": 4,
    "tageditor": 5,
    "workflow": 5,
    "platform": 6,
    "app/screens/elements": 7,
    "app/screens/chapters": 7,
    "app/screens/releases": 7,
    "app/screens/menus": 7,
    "app/screens/mainwindow": 7,
    "app/screens/editortable": 7,
    "app/screens/editorwindow": 7,
    "app/screens/settingswindow": 7,
    "app/screens/aboutwindows": 7,
    "app": 8,
}
WITHOUT_WIDGETS = range(1, 6)
# Floors 1 to 5 use pictures only where one is decoded or kept.
WITHOUT_GUI = range(1, 6)
WITH_PICTURES = ("artwork", "metadata", "tageditor", "workflow")

INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)
NEEDED = re.compile(r"\(NEEDED\).*\[(.+?)\]")


def room_of(path):
    """The room that a path below src/ belongs to: the longest folder that matches."""
    folders = [str(parent) for parent in pathlib.PurePosixPath(path).parents]
    return next((folder for folder in folders if folder in FLOORS), None)


def include_errors(source):
    for file in sorted([*source.rglob("*.h"), *source.rglob("*.cpp")]):
        own = room_of(file.relative_to(source).as_posix())
        if own is None:
            yield f"{file}: stands in no room"
            continue
        for included in INCLUDE.findall(file.read_text(encoding="utf-8")):
            other = room_of(included)
            if other is None:
                continue
            if FLOORS[other] > FLOORS[own]:
                yield f"{file}: {own} (floor {FLOORS[own]}) reads {included} (floor {FLOORS[other]})"
            if other == "platform" and own not in ("platform", "app"):
                yield f"{file}: only the application's root names the platform"


def link_errors(floors):
    for folder, floor in FLOORS.items():
        program = floors / f"floor_{folder.split('/')[-1]}"
        if not program.exists():
            yield f"{program}: isn't built"
            continue
        listing = subprocess.run(["readelf", "-d", program], capture_output=True, text=True, check=True).stdout
        libraries = NEEDED.findall(listing)
        if not any("Qt6Core" in library for library in libraries):
            yield f"{program}: links no Qt at all, so this check sees nothing"
        for library in libraries:
            if "Qt6Widgets" in library and floor in WITHOUT_WIDGETS:
                yield f"{folder} (floor {floor}) links {library}"
            if "Qt6Gui" in library and floor in WITHOUT_GUI and folder not in WITH_PICTURES:
                yield f"{folder} (floor {floor}) links {library}"


def main():
    source, floors = map(pathlib.Path, sys.argv[1:])
    errors = [*include_errors(source), *link_errors(floors)]
    print("\n".join(errors) or "Every room keeps to its floor.")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
