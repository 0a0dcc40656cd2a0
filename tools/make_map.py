#!/usr/bin/env python3
"""Writes the list of files in docs/map.md: a sentence a file, taken from each file's own opening.

    make_map.py [ROOT]     rewrites what stands between the two marks in docs/map.md
"""
import pathlib
import re
import sys

ROOMS = [
    ("foundation", "strings, collections, files, paths, masks, time and size text, the settings"),
    ("console", "cells and the cell grid, the console interface, events and key codes"),
    ("console/terminal", "the embedded terminal, and running programs in it"),
    ("console/wire", "the wire format, the display's end of it and the far end"),
    ("console/window", "the GTK window: the only files that see the toolkit"),
    ("ui", "windows, dialogs and their elements, message boxes, progress, menu, key bar"),
    ("text", "decoding, syntax, editor, viewer"),
    ("archives/listing", "reading archives"),
    ("panels", "the panel: reading, sorting, drawing, moving"),
    ("fileops", "what changes files"),
    ("archives/operations", "what changes archives"),
    ("commands", "keys and what they do, the command line, the configuration"),
    ("console/program", "start-up, main loop, exit"),
    ("console/program/main", "the two main functions"),
    ("fuzz", "a libFuzzer target for each reader of outside bytes; seeds/ and a dictionary beside"),
    ("bench", "benchmarks, run by ./dev bench"),
    ("tests/support", "the library that plays the display of zt-remote"),
    ("tests/support/fault_injector", "a library that makes a program's file calls fail"),
    ("tests/headless", "zt-remote as a person sees it"),
    ("tests/nothing_lost", "work on files under every kind of failure"),
    ("tests/window", "the window under Xvfb with real keys and mouse"),
    ("tests/checks", "what scripts check in the test run"),
    ("tools", "scripts behind ./dev, and the makers of generated files"),
]
START, END = "<!-- files: made by tools/make_map.py -->", "<!-- end of files -->"


def opening(path):
    """The first sentence of the comment that opens a file, or an empty text."""
    lines = path.read_text(encoding="utf-8").splitlines()
    if lines and lines[0].startswith("#!"):
        lines = lines[1:]
    words = []
    for line in lines:
        text = re.match(r'^(?://|#(?!!)|""")\s?(.*)$', line)
        text = text.group(1) if text else (line if words and path.suffix == ".py" else None)
        if text is None or not text.strip():
            break
        words.append(text.strip().strip('"'))
    text = " ".join(words)
    # Up to a full stop, or to a colon when what stands before it says enough.
    sentence = re.match(r"(.{30,}?[.:]|.+?\.)(?:\s|$)", text)
    return (sentence.group(1) if sentence else text).rstrip(".:").strip()


def rows(folder):
    """One row for a name with .h and .cpp; the header speaks for both."""
    names = {}
    for path in sorted(folder.iterdir()):
        if path.suffix in (".h", ".cpp", ".py", ".sh"):
            names.setdefault(path.stem if path.suffix in (".h", ".cpp") else path.name, []).append(
                path)
    for name, paths in names.items():
        first = min(paths, key=lambda path: path.suffix != ".h")
        shown = name if len(paths) > 1 or "." in name else paths[0].name
        yield f"- `{shown}`: {opening(first)}."


def listing(root):
    for room, what in ROOMS:
        folder = root / room
        found = list(rows(folder)) if folder.is_dir() else []
        if found:
            yield f"\n### {room}/\n\n{what[0].upper()}{what[1:]}.\n"
            yield from found


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
    path = root / "docs" / "map.md"
    text = path.read_text(encoding="utf-8")
    before, rest = text.split(START, 1)
    after = rest.split(END, 1)[1]
    body = "\n".join(listing(root))
    path.write_text(f"{before}{START}\n{body}\n\n{END}{after}", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
