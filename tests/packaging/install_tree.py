#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks what `cmake --install` puts under a prefix: every file, and what a desktop reads of it.

usage: install_tree.py <cmake> <build folder> <version>
"""

import gzip
import os
import pathlib
import stat
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

from installation import ID, desktop_entry, expect, install, moved_installation

ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("bin/tonearm", "bin/tonearm-cddafs")
TOOLS = ("ffmpeg", "ffprobe", "cd-paranoia")
MANUALS = ("tonearm", "tonearm-cddafs")
METAINFO = f"share/metainfo/{ID}.metainfo.xml"


def main():
    cmake, build, version = sys.argv[1:]
    with moved_installation(cmake, build) as prefix:
        check_files(prefix, pathlib.Path(build))
        check_modes(prefix)
        check_links(prefix)
        check_desktop_entry(prefix)
        check_description(prefix, version)
        check_icons(prefix)
        check_manuals(prefix, version)
        check_versions(prefix, version)
    check_installing_over_links(cmake, build)
    return 0


def check_files(prefix, build):
    """Nothing is missing, and nothing is there that isn't meant to be."""
    expected = {*PROGRAMS, METAINFO, "share/tonearm/Genres.json", "share/tonearm/audio-tools.txt",
                f"share/applications/{ID}.desktop", f"share/icons/hicolor/scalable/apps/{ID}.svg"}
    expected |= {f"libexec/tonearm/{tool}" for tool in TOOLS}
    expected |= {f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in ICON_SIZES}
    expected |= {f"share/man/man1/{manual}.1.gz" for manual in MANUALS}
    built = build / "share/tonearm/Licenses"
    expect((built / "README.txt").exists(), "notices among the licences")
    licences = {f"share/tonearm/Licenses/{path.name}" for path in built.iterdir()}
    found = {path.relative_to(prefix).as_posix() for path in prefix.rglob("*")
             if not path.is_dir()} - {"share/tonearm/bin"}
    expect(found == expected | licences, f"other files: {sorted(found ^ (expected | licences))}")


def check_modes(prefix):
    for path in prefix.rglob("*"):
        if path.is_symlink():
            continue
        mode = stat.S_IMODE(path.stat().st_mode)
        runs = path.is_dir() or path.parent.name == "bin" or path.parent.parent.name == "libexec"
        expect(mode == (0o755 if runs else 0o644), f"another mode than {mode:o} for {path}")


def check_links(prefix):
    """The tools are found where the programs look, and no link leads back to the first place."""
    for tool in TOOLS:
        expect(os.access(prefix / "share/tonearm/bin" / tool, os.X_OK), f"{tool} in share/tonearm/bin")
    for path in prefix.rglob("*"):
        if path.is_symlink():
            target = os.readlink(path)
            expect("first" not in target, f"a link that can be moved, not {path.name} to {target}")


def check_desktop_entry(prefix):
    run("desktop-file-validate", prefix / f"share/applications/{ID}.desktop")
    entry = desktop_entry(prefix)
    expect(entry["Exec"] == "tonearm %f", "a file to be passed on")
    expect(entry["Icon"] == ID, "the icon of the application")


def check_description(prefix, version):
    run("appstreamcli", "validate", "--no-net", prefix / METAINFO)
    component = xml.etree.ElementTree.parse(prefix / METAINFO).getroot()
    expect(component.findtext("id") == ID, "the same name as the desktop entry's")
    expect(component.findtext("launchable") == f"{ID}.desktop", "the desktop entry to be named")
    expect(component.find("releases/release").get("version") == version, f"{version} as the latest release")
    types = {element.text for element in component.iterfind("provides/mediatype")}
    expect(types == set(desktop_entry(prefix)["MimeType"].rstrip(";").split(";")), "the same types in both")


def check_icons(prefix):
    for size in ICON_SIZES:
        picture = (prefix / f"share/icons/hicolor/{size}x{size}/apps/{ID}.png").read_bytes()
        expect(picture[:8] == b"\x89PNG\r\n\x1a\n", f"a PNG of {size} pixels")
        expect(struct.unpack(">II", picture[16:24]) == (size, size), f"{size} pixels each way")


def check_manuals(prefix, version):
    for manual in MANUALS:
        path = prefix / f"share/man/man1/{manual}.1.gz"
        complaints = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", path).stderr
        expect(not complaints, f"a flawless manual, not {complaints}")
        expect(version in gzip.decompress(path.read_bytes()).decode(), f"the version in the manual of {manual}")


def check_versions(prefix, version):
    for program in PROGRAMS:
        told = run(prefix / program, "--version").stdout
        expect(told == f"{pathlib.Path(program).name} {version}\n", f"the version of {program}, not {told!r}")


def check_installing_over_links(cmake, build):
    """An earlier installation may have links to the system's tools, which have to stay as they are."""
    with tempfile.TemporaryDirectory(prefix="tonearm-") as folder:
        system = pathlib.Path(folder, "system")
        tools = pathlib.Path(folder, "prefix/libexec/tonearm")
        tools.mkdir(parents=True)
        system.write_text("the system's own")
        for tool in TOOLS:
            (tools / tool).symlink_to(system)
        install(cmake, build, pathlib.Path(folder, "prefix"))
        expect(system.read_text() == "the system's own", "the system's tools to be left alone")
        expect(not any(os.readlink(path) == str(system) for path in tools.iterdir() if path.is_symlink()),
               "the new tools in the old ones' place")


def run(*command):
    environment = {name: value for name, value in os.environ.items() if "DISPLAY" not in name}
    done = subprocess.run(command, env={**environment, "LC_ALL": "C.UTF-8"}, stdin=subprocess.DEVNULL,
                          capture_output=True, text=True, check=False)
    expect(done.returncode == 0, f"{command[0]} to be content: {done.stdout}{done.stderr}")
    return done


if __name__ == "__main__":
    sys.exit(main())
