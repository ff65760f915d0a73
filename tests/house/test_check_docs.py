#!/usr/bin/env python3
"""The documents check finds each kind of dead name, and nothing where all is well."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools/house"))
from check_docs import House  # found there

FILES = {
    "CMakePresets.json": '{"name": "release"}',
    "CMakeLists.txt": "add_executable(client main.cpp)",
    "script/run": "",
    "script/build": "",
    "script/fuzz": "",
    "fuzz/codec.cpp": "",
    "src/link/queue.h": "",
    "src/link/window.cpp": 'TitledWindow(dress, {u"frmOptions", u"options"}, owner)',
    "share/help/index.html": '<h2 id="options">Options</h2>',
    "docs/other.md": "# One Thing\n",
}


def faults(changed):
    """How many faults a small house has with these files changed."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in (FILES | changed).items():
            path = Path(folder) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return len(list(House(Path(folder)).wrong()))


class Documents(unittest.TestCase):
    def test_markdown(self):
        cases = [
            ("see `link/queue`, `src/link`, `script/run --fast` and [that](docs/other.md#one-thing)", 0),
            ("`link/window.h`", 1),
            ("`tests/e2e` is not of this house, `script/walk` is", 1),
            ("[that](docs/another.md)", 1),
            ("[that](docs/other.md#another-thing)", 1),
            ("`script/fuzz codec 60`, `script/fuzz NAME SECONDS`", 0),
            ("`script/fuzz skins 60`", 1),
            ("```sh\nscript/build release # a note\nPYLOX_HOME=out build/release/bin/client -x\n```", 0),
            ("```sh\nscript/build fast\n```", 1),
            ("```sh\nbuild/release/bin/server\n```", 1),
            ("```sh\nmake all\n```", 1),
            ("```\nlink/queue -> link/socket\n```", 1),
        ]
        for text, expected in cases:
            with self.subTest(text=text):
                self.assertEqual(faults({"README.md": text}), expected)

    def test_help(self):
        self.assertEqual(faults({"share/help/index.html": '<img src="none.png"><h2 id="options">'}), 1)
        self.assertEqual(faults({"share/help/index.html": '<h2 id="other">Other</h2>'}), 1)


if __name__ == "__main__":
    unittest.main()
