#!/usr/bin/env python3
"""The checking scripts against small trees of files: each must find what it is there for.

    checkers_test.py FOLDER_OF_THE_SCRIPTS
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(sys.argv.pop(1)) if len(sys.argv) > 1 else pathlib.Path("tools")


def run(script, files):
    """Status and output of `script` on a tree of {path: text}."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = pathlib.Path(root, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, str(TOOLS / script), root],
                              capture_output=True, text=True)
        return done.returncode, done.stdout


class Floors(unittest.TestCase):
    def test_accepts_includes_downward_and_beside(self):
        status, output = run("check_floors.py", {
            "panels/panel.h": '#include "panels/entry.h"\n#include "foundation/westring.h"\n'
                              '#include <gio/gio.h>\n#include <vector>\n',
            "console/window/window.cpp": '#include <gtkmm.h>\n#include "console/cell.h"\n',
            "console/program/main/zt.cpp": '#include "console/window/window.h"\n'
                                           '#include "commands/keys.h"\n',
        })
        self.assertEqual((0, ""), (status, output))

    def test_refuses(self):
        rows = [
            ("console/cell.h", '#include "ui/win.h"'),
            ("panels/panel.cpp", '#include "commands/keys.h"'),
            ("panels/panel.cpp", '#  include "archives/operations/extract.h"'),
            ("archives/listing/zip.cpp", '#include "panels/panel.h"'),
            ("ui/win.cpp", "#include <gtk/gtk.h>"),
            ("console/grid.cpp", "#include <pangomm.h>"),
            ("console/wire/far.cpp", "#include <X11/Xlib.h>"),
            ("console/wire/far.cpp", '#include "console/window/window.h"'),
            ("console/grid.cpp", '#include "console/wire/frame.h"'),
            ("ui/win.cpp", '#include "win.h"'),
        ]
        for path, line in rows:
            with self.subTest(path=path, line=line):
                status, output = run("check_floors.py", {path: "// A file.\n" + line + "\n"})
                self.assertEqual(1, status)
                self.assertIn(path + ":2:", output)

    def test_refuses_a_tree_without_sources(self):
        self.assertEqual(1, run("check_floors.py", {"README.md": ""})[0])


class Addresses(unittest.TestCase):
    def test_accepts_local_files_and_identifiers(self):
        self.assertEqual((0, ""), run("check_addresses.py", {
            "a.cpp": 'const char* k = "file:///usr/share/doc";\n',
            "b.svg": '<svg xmlns="http:' + '//www.w3.org/2000/svg"/>\n',
            "build/log.txt": "https:" + "//example.org\n",
        }))

    def test_refuses_a_host(self):
        status, output = run("check_addresses.py",
                             {"get.sh": "#\ncurl https:" + "//example.org/a\n"})
        self.assertEqual((1, "get.sh:2: example.org\n"), (status, output))


if __name__ == "__main__":
    unittest.main()
