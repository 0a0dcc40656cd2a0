#!/usr/bin/env python3
"""Checks that the tree names no host: everything that a build needs comes from apt.

    check_addresses.py [ROOT]     prints each web address that is not allowed; status 1 if any
"""
import pathlib
import re
import sys

ADDRESS = re.compile(r"\b(?:https?|ftp|git|ssh)://([A-Za-z0-9.\[\]-]+)", re.IGNORECASE)
# Names that formats ask for as identifiers; nothing is fetched from them.
ALLOWED = {"www.w3.org", "www.debian.org"}


def files(root):
    """Every file of the tree but what git and the builds keep there."""
    for path in sorted(root.rglob("*")):
        if path.relative_to(root).parts[0] not in (".git", "build") and path.is_file():
            yield path


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
    seen = wrong = 0
    for path in files(root):
        seen += 1
        for number, line in enumerate(path.read_bytes().decode("latin-1").splitlines(), 1):
            for host in ADDRESS.findall(line):
                if host not in ALLOWED:
                    wrong += 1
                    print(f"{path.relative_to(root)}:{number}: {host}")
    if not seen:
        print(f"no file found under {root}")
    return 1 if wrong or not seen else 0


if __name__ == "__main__":
    sys.exit(main())
