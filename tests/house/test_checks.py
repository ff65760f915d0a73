#!/usr/bin/env python3
"""The checks of the house find each kind of fault, and nothing where all is well."""

import io
import sys
import tempfile
import unittest
from contextlib import redirect_stdout
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools/house"))
import check_docs  # found there
import check_includes

FILES = {
    "CMakePresets.json": '{"name": "release"}',
    "CMakeLists.txt": "add_executable(client main.cpp)",
    "script/run": "",
    "script/build": "",
    "script/fuzz": "",
    "fuzz/codec.cpp": "",
    "messenger/main.cpp": "",
    "src/core/clock.h": "",
    "src/link/queue.h": "",
    "src/link/window.cpp": 'TitledWindow(dress, {u"frmOptions", u"options"}, owner)',
    "src/room/board.h": "",
    "share/help/index.html": '<h2 id="options">Options</h2>',
    "docs/other.md": "# One Thing\n",
}


class Checks(unittest.TestCase):
    def finds(self, count, name, text, check):
        """So many faults in a small house in which one file is this text."""
        with self.subTest(name=name, text=text), tempfile.TemporaryDirectory() as folder:
            for path, content in (FILES | {name: text}).items():
                path = Path(folder) / path
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content, encoding="utf-8")
            sys.argv[1:] = [folder]
            with redirect_stdout(io.StringIO()) as said:
                failed = check.main()
            self.assertEqual(said.getvalue().count("\n") if failed else 0, count)

    def test_documents(self):
        help_page = "share/help/index.html"
        cases = [
            (0, "README.md", "see `link/queue`, `src/link`, `script/run --fast` and [that](docs/other.md#one-thing)"),
            (1, "README.md", "`link/window.h`"),
            (1, "README.md", "`tests/e2e` is not of this house, `script/walk` is"),
            (1, "README.md", "[that](docs/another.md)"),
            (1, "README.md", "[that](docs/other.md#another-thing)"),
            (0, "README.md", "`script/fuzz codec 60`, `script/fuzz NAME SECONDS`"),
            (1, "README.md", "`script/fuzz skins 60`"),
            (0, "README.md", "```sh\nscript/build release # a note\nA=out build/release/bin/client -x\n```"),
            (1, "README.md", "```sh\nscript/build fast\n```"),
            (1, "README.md", "```sh\nbuild/release/bin/server\n```"),
            (1, "README.md", "```sh\nmake all\n```"),
            (1, "README.md", "```\nlink/queue -> link/socket\n```"),
            (1, help_page, '<img src="none.png"><h2 id="options">'),
            (1, help_page, '<h2 id="other">Other</h2>'),
        ]
        for case in cases:
            self.finds(*case, check_docs)

    def test_includes(self):
        cases = [
            (0, "src/room", '#include "link/frmComms.h"'),
            (1, "src/link", '#include "room/frmMain.h"'),
            (1, "src/link", '  #  include "room/frmMain.h"'),
            (0, "src/link", '#include "link/wait.h"'),
            (1, "src/core", '#include "platform/prompts.h"'),
            (1, "src/core", "#include <QWidget>"),
            (0, "src/core", "#include <QPalette>"),
            (0, "messenger", '#include "link/xml_codec.h"'),
            (1, "messenger", '#include "link/frmComms.h"'),
            (1, "messenger", '#include "room/clsChatters.h"'),
        ]
        for count, folder, line in cases:
            self.finds(count, f"{folder}/file.cpp", f"#include <vector>\n{line}\n", check_includes)


if __name__ == "__main__":
    unittest.main()
