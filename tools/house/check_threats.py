#!/usr/bin/env python3
"""Every test that docs/threats.md names is there, and every threat names one.

check_threats.py [ROOT]: prints each fault as a line and exits 1 when there is one.
"""

import re
import sys
from pathlib import Path

ROW = re.compile(r"^\| (\d+) \|.*\|([^|]*)\|$", re.MULTILINE)
NAME = re.compile(r"`(\w+\.\w+)`")
GTEST = re.compile(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)")
CTEST = re.compile(r"add_test\(\s*NAME\s+(\w+\.\w+)")


def tests(root):
    """The names of all tests, as the sources give them."""
    names = set()
    for file in (root / "tests").rglob("*"):
        if file.suffix == ".cpp":
            names |= {".".join(found) for found in GTEST.findall(file.read_text(encoding="utf-8"))}
        elif file.name == "CMakeLists.txt":
            names |= set(CTEST.findall(file.read_text(encoding="utf-8")))
    return names


def wrong(document, known):
    rows = ROW.findall(document)
    if not rows:
        yield "there is no table of threats"
    for number, cell in rows:
        named = NAME.findall(cell)
        if not named:
            yield f"threat {number} names no test"
        yield from (f"threat {number}: there is no test {name}" for name in named if name not in known)


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    faults = list(wrong((root / "docs/threats.md").read_text(encoding="utf-8"), tests(root)))
    print("\n".join(faults) or "every threat has its tests")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
