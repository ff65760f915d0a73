#!/usr/bin/env python3
"""What the documents name is there: files, folders, scripts, programs, links and anchors.

check_docs.py [ROOT]: prints each dead name as file:line and exits 1 when there is one. Looked at are the Markdown
files of the root and of docs/, the pages of share/help, and the help anchors that the code asks for.
"""

import re
import sys
from pathlib import Path

PROGRAM = re.compile(r"^build/(?:[A-Za-z]+)/bin/(.+)$")
PRESET = re.compile(r'"name": "([a-z]+)"')
COMMANDS = {"mkdir", "cmake", "sudo", "apt", "dpkg", "git", "python3"}


def slug(heading):
    """The anchor that a Markdown heading gets."""
    return re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")


def anchors(page):
    text = page.read_text(encoding="utf-8")
    if page.suffix == ".md":
        return {slug(heading) for heading in re.findall(r"^#+ (.+)$", text, re.MULTILINE)}
    return set(re.findall(r'\bid="([^"]+)"', text))


class House:
    def __init__(self, root):
        self.root = root
        self.folders = {path.name for path in root.iterdir() if path.is_dir() and path.name != "build"}
        self.libraries = {path.name for path in (root / "src").iterdir() if path.is_dir()}
        cmake = [path for path in root.rglob("CMakeLists.txt") if "build" not in path.relative_to(root).parts]
        sources = "\n".join(path.read_text(encoding="utf-8") for path in cmake)
        self.programs = set(re.findall(r"add_executable\((\S+)", sources))
        self.presets = set(PRESET.findall((root / "CMakePresets.json").read_text(encoding="utf-8")))

    def has_file(self, name):
        """A file or folder by its path, a class by its path without the ending, a pattern."""
        places = [self.root, self.root / "src"]
        if any(sign in name for sign in "*?"):
            return any(any(place.glob(name)) for place in places)
        return any((place / name).exists() or (place / f"{name}.h").exists() for place in places)

    def is_path(self, name):
        """Whether a word is meant as a path of this tree."""
        first = name.split("/")[0]
        return "/" in name and re.fullmatch(r"[\w.*?/@-]+", name) and first in self.folders | self.libraries

    def wrong_word(self, word):
        program = PROGRAM.match(word)
        if program and program.group(1) not in self.programs:
            return f"no such program: {word}"
        if self.is_path(word) and not self.has_file(word):
            return f"no such file: {word}"
        return None

    def wrong_command(self, line):
        words = [word for word in line.split("#")[0].split() if not re.match(r"^[A-Z_]+=", word)]
        if not words:
            return
        if words[0] not in COMMANDS and not words[0].startswith(("script/", ".ci/", "build/")):
            yield f"no such command: {words[0]}"
        if words[0] == "script/build" and len(words) > 1 and words[1] not in self.presets:
            yield f"no such preset: {words[1]}"
        if words[0] == "script/fuzz" and len(words) > 1 and not self.has_file(f"fuzz/{words[1]}.cpp"):
            yield f"no such fuzz target: {words[1]}"
        yield from filter(None, map(self.wrong_word, words))

    def wrong_link(self, page, target):
        if re.match(r"^(https?|mailto):", target):
            return None
        name, _, anchor = target.partition("#")
        linked = (page.parent / name) if name else page
        if not linked.exists():
            return f"no such file: {name}"
        if anchor and anchor not in anchors(linked):
            return f"no such anchor: {target}"
        return None

    def wrong_in_markdown(self, page):
        block = None
        for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
            if line.startswith("```"):
                block = line[3:] if block is None else None
                continue
            wrong = []
            if block == "sh":
                wrong += self.wrong_command(line)
            elif block is None:
                code = re.findall(r"`([^`]+)`", line)
                wrong += [self.wrong_word(word) for text in code for word in text.split()]
                wrong += [fault for text in code if text.startswith("script/") for fault in self.wrong_command(
                    re.sub(r"\[.*|\b[A-Z]+\b.*", "", text))]
                wrong += [self.wrong_link(page, target) for target in re.findall(r"\]\(([^)\s]+)\)", line)]
            else:
                wrong += map(self.wrong_word, re.findall(r"[a-z]+/\w+", line))
            yield from (f"{page.relative_to(self.root)}:{number}: {fault}" for fault in sorted(set(filter(None, wrong))))

    def wrong_in_html(self, page):
        for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
            for target in re.findall(r'\b(?:href|src)="([^"]+)"', line):
                if fault := self.wrong_link(page, target):
                    yield f"{page.relative_to(self.root)}:{number}: {fault}"

    def wrong_help_requests(self):
        guide = self.root / "share/help/index.html"
        known = anchors(guide)
        asked = re.compile(r'(?:helpRequested\(QStringLiteral\(|u"frm\w+", u)"(\w+)"')
        for source in sorted((self.root / "src").rglob("*.cpp")):
            for anchor in asked.findall(source.read_text(encoding="utf-8")):
                if anchor not in known:
                    yield f"{source.relative_to(self.root)}: the help has no anchor {anchor}"

    def wrong(self):
        for page in sorted([*self.root.glob("*.md"), *(self.root / "docs").glob("*.md")]):
            yield from self.wrong_in_markdown(page)
        for page in sorted((self.root / "share/help").glob("*.html")):
            yield from self.wrong_in_html(page)
        yield from self.wrong_help_requests()


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    wrong = list(House(root).wrong())
    print("\n".join(wrong) or "everything that the documents name is there")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
