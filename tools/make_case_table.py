#!/usr/bin/env python3
"""Writes foundation/case_table.inc, the rows of the case table, from Unicode's own data.

Usage: tools/make_case_table.py [UnicodeData.txt] > foundation/case_table.inc
The default source is that of Debian's package unicode-data. Only simple case mappings with codes
of the pages 0 to 0x104 are taken; a column of 0 means the code itself.
"""
import os
import re
import sys

DEFAULT_SOURCE = "/usr/share/unicode/UnicodeData.txt"
LAST_PAGE = 0x104
ROWS_A_LINE = 3


def unicode_version(source):
    """The version named on the first line of a file that lies beside the source."""
    blocks = os.path.join(os.path.dirname(source), "Blocks.txt")
    with open(blocks, encoding="utf-8") as lines:
        return re.search(r"Blocks-([0-9.]+)\.txt", lines.readline()).group(1)


def case_rows(source):
    """(code, lower, upper) of every code that has another case, in ascending order."""
    rows = []
    with open(source, encoding="utf-8") as lines:
        for line in lines:
            fields = line.rstrip("\n").split(";")
            code = int(fields[0], 16)
            upper = int(fields[12] or "0", 16)
            lower = int(fields[13] or "0", 16)
            if not (upper or lower) or code >> 8 > LAST_PAGE:
                continue
            for form in (upper, lower):
                # A row keeps 16 bits; the plane is that of the code itself.
                assert form == 0 or form >> 16 == code >> 16, line
            rows.append((code, lower, upper))
    return rows


def write_table(name, rows, out):
    out.write(f"constexpr CaseRow {name}[] = {{\n")
    cells = ["{0x%04X, 0x%04X, 0x%04X}," % tuple(c & 0xFFFF for c in row) for row in rows]
    cells.append("{0, 0, 0},")
    for start in range(0, len(cells), ROWS_A_LINE):
        out.write("    " + " ".join(cells[start:start + ROWS_A_LINE]) + "\n")
    out.write("};\n")


def main():
    source = sys.argv[1] if len(sys.argv) > 1 else DEFAULT_SOURCE
    rows = case_rows(source)
    out = sys.stdout
    out.write("// Made by tools/make_case_table.py from Unicode %s; do not edit.\n"
              % unicode_version(source))
    out.write("// Simple case mappings: code, lower case, upper case, a 0 for the code itself.\n")
    out.write("// clang-format off\n")
    write_table("kBasicPlaneRows", [row for row in rows if row[0] < 0x10000], out)
    write_table("kFirstPlaneRows", [row for row in rows if row[0] >= 0x10000], out)
    out.write("// clang-format on\n")


if __name__ == "__main__":
    main()
