# SPDX-License-Identifier: GPL-3.0-or-later
"""Drives the real program through a whole job with nothing but what a screen reader has.

    whole_job.py <program> [<argument>...]

Ends with 77 where the machine hasn't got what that takes.
"""

import json
import pathlib
import subprocess
import sys

from desktop import Desktop, missing_programs

CANNOT = 77

# As X names the keys.
DOWN = 0xFF54
RETURN = 0xFF0D

CHAPTERS = """;FFMETADATA1
[CHAPTER]
TIMEBASE=1/1000
START=0
END=1000
title=One
[CHAPTER]
TIMEBASE=1/1000
START=1000
END=2000
title=Two
"""


def main():
    reason = why_not()
    if reason:
        print(f"This machine can't run the test: {reason}.")
        return CANNOT
    with Desktop() as desktop:
        source, output = prepare(desktop.path)
        program = desktop.start(*sys.argv[1:])
        # Only now: it looks for the bus as it is loaded.
        from screen_reader import ScreenReader
        reader = ScreenReader(program.pid)
        try:
            look_at_empty_window(reader, output)
            do_job(reader, source)
            check_files(output / "The Artist" / "The Album")
            check_announcements(reader)
        finally:
            print(f"What a screen reader sees:\n{reader.tree()}\nand hears:\n{reader.announcements}")
        close_window(program)
    return 0


def why_not():
    missing = missing_programs()
    if missing:
        return f"it has no {', '.join(missing)}"
    if not pathlib.Path("/usr/share/dbus-1/services/org.a11y.Bus.service").exists():
        return "it has no accessibility bus (at-spi2-core)"
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except (ImportError, ValueError) as error:
        return str(error)
    return None


def prepare(folder):
    """Makes a source, and settings with an output folder."""
    output = folder / "Albums"
    output.mkdir()
    settings = folder / "config" / "tonearm"
    settings.mkdir()
    (settings / "settings.json").write_text(json.dumps({"defaultOutputDirectoryPath": str(output)}))
    (folder / "chapters").write_text(CHAPTERS)
    source = folder / "The Concert.mkv"
    subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=duration=2", "-i", str(folder / "chapters"),
                    "-map", "0:a", "-map_chapters", "1", "-c:a", "flac", str(source)],
                   check=True, stdin=subprocess.DEVNULL)
    return source, output


def look_at_empty_window(reader, output):
    reader.find("Tonearm")
    for name in ("Source File", "Album Metadata", "Chapters & Song Titles", "Encode"):
        expect(reader.find(name, *headings()), f'a heading "{name}"')
    for name in ("Select Input File…", "Select Output Folder…", "Encode to FLAC", "Artist", "Album Title",
                 "Year", "Genre"):
        reader.find(name, *controls())
    for name in ("Input file drop area", "Output folder drop area", "Song titles"):
        reader.find(name, *groups())
    expect(reader.text_in("Output Folder:") == str(output), "the output folder of the settings")
    check_names(reader)


def do_job(reader, source):
    reader.press("Select Input File…")
    reader.write("File name:", str(source))
    reader.press("Choose")
    reader.find("Song title for chapter 1")
    reader.find("Source audio: CD quality. FLAC · 16-bit · 44.1 kHz · Mono")
    check_names(reader)
    for name, text in (("Artist", "The Artist"), ("Album Title", "The Album"), ("Year", "1969"),
                       ("Song title for chapter 2", "Zwei")):
        reader.write(name, text)
    reader.press("Choose from the default genres")
    reader.strike(DOWN)
    reader.wait_for_focus("Acoustic", *menu_items())
    reader.strike(RETURN)
    reader.wait_for_text("Genre", "Acoustic")
    reader.press("Encode to FLAC")
    reader.find("Encoded 2 tracks to The Album")
    check_names(reader)


def check_files(folder):
    names = sorted(path.name for path in folder.iterdir())
    expect(names[:2] == ["01-One.flac", "02-Zwei.flac"], f"two tracks among {names}")
    expect(len(names) == 3 and names[2].endswith(".log"), f"a log among {names}")
    subprocess.run(["flac", "--test", "--silent", *folder.glob("*.flac")], check=True)
    tags = subprocess.run(["metaflac", "--export-tags-to=-", str(folder / "02-Zwei.flac")], check=True,
                          capture_output=True, text=True).stdout.splitlines()
    for tag in ("title=Zwei", "artist=The Artist", "album=The Album", "date=1969", "genre=Acoustic"):
        expect(tag in tags, f'"{tag}" among {tags}')


def check_announcements(reader):
    from screen_reader import wait_for
    wait_for("the job's end to be announced", lambda: "Encoded 2 tracks to The Album." in reader.announcements)
    expect("Found 2 chapters." in reader.announcements, f"the load among {reader.announcements}")


def check_names(reader):
    for role, name in reader.focusable():
        expect(name, f"a name for each {role}")


def close_window(program):
    import windows
    windows.close("Tonearm")
    expect(program.wait(timeout=60) == 0, "the program to end well")


def headings():
    from screen_reader import Atspi
    return [Atspi.Role.HEADING]


def groups():
    from screen_reader import Atspi
    return [Atspi.Role.PANEL]


def menu_items():
    from screen_reader import Atspi
    return [Atspi.Role.MENU_ITEM]


def controls():
    from screen_reader import Atspi
    return [Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT]


def expect(holds, what):
    if not holds:
        raise AssertionError(f"expected {what}")


if __name__ == "__main__":
    sys.exit(main())
