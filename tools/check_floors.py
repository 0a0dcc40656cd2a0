#!/usr/bin/env python3
"""Checks that the rooms of the house stand on each other as they should.

A file may include files of its own floor and of the floors below it, never of one above. The
window toolkit and X are seen in console/window/ only; the wire and the window know nothing of each
other, and only the program's floor knows them.

    check_floors.py [ROOT]     prints each offence; the status is 1 when there is one
"""
import pathlib
import re
import sys

# From the ground up. The longest folder that a path begins with is its floor.
FLOORS = [
    ["foundation"],
    ["console", "console/terminal", "console/wire", "console/window"],
    ["ui"],
    ["text"],
    ["archives/listing"],
    ["panels"],
    ["fileops"],
    ["archives/operations"],
    ["commands"],
    ["console/program"],
]
LEVELS = {folder: level for level, floor in enumerate(FLOORS) for folder in floor}
# Wings of a floor: what may include them besides themselves.
WINGS = {"console/wire": ["console/program"], "console/window": ["console/program"]}
TOOLKIT = re.compile(r"^(gtk|gdk|pango|atk|cairo|sigc\+\+|X11|gtkmm|gdkmm|pangomm|atkmm)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def folder_of(path):
    """The longest known folder that `path` (relative, with slashes) lies in, or None."""
    parts = path.split("/")[:-1]
    for length in range(len(parts), 0, -1):
        folder = "/".join(parts[:length])
        if folder in LEVELS:
            return folder
    return None


def offences_of(path, lines):
    """The offences in one source file, as texts."""
    here = folder_of(path)
    for number, line in enumerate(lines, 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quoted, target = match.group(1) == '"', match.group(2)
        where = f"{path}:{number}: "
        if TOOLKIT.match(target) and here != "console/window":
            yield where + f"{target} is for console/window/ only"
        there = folder_of(target) if quoted else None
        if quoted and not there:
            yield where + f'"{target}" is no path from the root of the tree'
        if not there or there == here:
            continue
        if LEVELS[there] > LEVELS[here]:
            yield where + f"{here} stands below {there} and may not include {target}"
        elif there in WINGS and here not in WINGS[there]:
            yield where + f"{here} may not include {target}: {there} is for {WINGS[there]}"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
    seen, offences = 0, []
    for folder in sorted({folder.split("/")[0] for folder in LEVELS}):
        for path in sorted((root / folder).rglob("*")):
            name = path.relative_to(root).as_posix()
            if path.suffix in (".h", ".cpp") and folder_of(name):
                seen += 1
                text = path.read_text(encoding="utf-8")
                offences += offences_of(name, text.splitlines())
    for offence in offences:
        print(offence)
    if not seen:
        print(f"no source file found under {root}")
    return 1 if offences or not seen else 0


if __name__ == "__main__":
    sys.exit(main())
