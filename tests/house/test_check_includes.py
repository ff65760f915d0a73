#!/usr/bin/env python3
"""The include check fails when an arrow is turned round."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "tools/house/check_includes.py"


def check(folder, line):
    """The check's exit status for a house with one file that holds this line."""
    with tempfile.TemporaryDirectory() as root:
        for name in ["src/core", "src/link", "src/room", "messenger"]:
            (Path(root) / name).mkdir(parents=True)
        (Path(root) / folder / "file.cpp").write_text(f"#include <vector>\n{line}\n", encoding="utf-8")
        return subprocess.run([sys.executable, CHECK, root], capture_output=True, check=False).returncode


class IncludeArrows(unittest.TestCase):
    def test_arrows(self):
        cases = [
            ("src/room", '#include "link/frmComms.h"', 0),
            ("src/link", '#include "room/frmMain.h"', 1),
            ("src/link", '  #  include "room/frmMain.h"', 1),
            ("src/link", '#include "link/wait.h"', 0),
            ("src/core", '#include "platform/prompts.h"', 1),
            ("src/core", "#include <QWidget>", 1),
            ("src/core", "#include <QPalette>", 0),
            ("messenger", '#include "link/xml_codec.h"', 0),
            ("messenger", '#include "link/frmComms.h"', 1),
            ("messenger", '#include "room/clsChatters.h"', 1),
        ]
        for folder, line, expected in cases:
            with self.subTest(folder=folder, line=line):
                self.assertEqual(check(folder, line), expected)


if __name__ == "__main__":
    unittest.main()
