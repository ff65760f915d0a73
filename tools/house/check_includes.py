#!/usr/bin/env python3
"""Reads every #include "folder/…" and fails on an arrow that the house does not have.

check_includes.py [ROOT]: prints each forbidden include as file:line and exits 1 when there is one.
"""

import re
import sys
from pathlib import Path

LOWER = ["core", "richtext", "platform", "link", "skin", "controls", "emotions", "room"]
MAY_INCLUDE = {
    "core": [],
    "richtext": ["core"],
    "platform": ["core", "richtext"],
    "link": ["core", "platform"],
    "skin": ["core", "platform"],
    "controls": ["core", "platform", "skin"],
    "emotions": ["core", "platform", "skin"],
    "room": ["core", "richtext", "platform", "link", "skin", "controls", "emotions"],
    "privmsg": LOWER,
    "directory": LOWER,
    "prefs": LOWER,
    "app": LOWER + ["privmsg", "directory", "prefs"],
    "messenger": ["core", "link", "platform"],
}
# The companion knows of these folders only what it shares with the client: the codec and the transport.
MESSENGER_MAY_INCLUDE = {
    "link": {"clsXMLMessage.h", "message_framer.h", "xml_codec.h"},
    "platform": {"code_page.h", "settings_file.h", "tcp_listener.h", "tcp_socket.h", "text_file.h"},
}
CORE_MAY_NOT_USE = re.compile(r"<Q(Widget|Application|GuiApplication|Window|Dialog|Tcp|Network)")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([a-z]+)/([^"]+)"')


def folders(root):
    yield from ((path.name, path) for path in sorted((root / "src").iterdir()) if path.is_dir())
    yield "messenger", root / "messenger"


def is_allowed(folder, target, header):
    if target == folder:
        return True
    if folder == "messenger" and target in MESSENGER_MAY_INCLUDE:
        return header in MESSENGER_MAY_INCLUDE[target]
    return target in MAY_INCLUDE.get(folder, [])


def wrong_includes(root):
    for folder, path in folders(root):
        for file in sorted([*path.rglob("*.h"), *path.rglob("*.cpp")]):
            for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
                place = f"{file.relative_to(root)}:{number}"
                include = INCLUDE.match(line)
                if include and not is_allowed(folder, *include.groups()):
                    yield f"{place}: {folder} may not include {include.group(1)}/{include.group(2)}"
                if folder == "core" and CORE_MAY_NOT_USE.search(line):
                    yield f"{place}: core knows no windows: {line.strip()}"


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    wrong = list(wrong_includes(root))
    print("\n".join(wrong) or "every include follows an arrow of the house")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
