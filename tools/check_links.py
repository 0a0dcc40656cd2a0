#!/usr/bin/env python3
"""Checks that a program stands without the window toolkit and without X.

    check_links.py PROGRAM     prints each library that should not be there; status 1 if any
"""
import re
import subprocess
import sys

FORBIDDEN = re.compile(r"^lib(gtk|gdk|pango|atk|cairo|X|xcb|sigc)", re.IGNORECASE)


def libraries(program):
    """The libraries that the loader brings in for `program`, those of libraries included."""
    listed = subprocess.run(["ldd", program], check=True, capture_output=True, text=True).stdout
    return [line.split()[0] for line in listed.splitlines() if line.strip()]


def main():
    names = libraries(sys.argv[1])
    wrong = [name for name in names if FORBIDDEN.match(name)]
    if not any(name.startswith("libc.so") for name in names):
        print("the loader lists no C library: what was looked at is no program")
        return 1
    for name in wrong:
        print(f"{sys.argv[1]} needs {name}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
