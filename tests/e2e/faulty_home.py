#!/usr/bin/env python3
"""A client whose own folder is read-only and holds pipes, folders and dead links where its files should be.

faulty_home.py BIN: the folder of the programs.
"""

import os
import re
import sys
import tempfile
from pathlib import Path

from desktop import Desktop, ends, wait_for

# The superuser is refused nothing: the client runs as nobody.
AS_NOBODY = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"] if os.geteuid() == 0 else []


def spoil(folder):
    for name in ["ChatList.dat", "Emoticon.dat"]:
        os.mkfifo(folder / name)
    (folder / "Pylox.ini").mkdir()
    (folder / "emotions.dat").symlink_to("nowhere")
    (folder / "Registry.reg").symlink_to("Registry.reg")
    (folder / "Light ChatOpt.dat").write_text("HIGHLIGHT    5\r\n", encoding="utf-8")
    folder.chmod(0o555)


def state(folder):
    return sorted((entry.name, entry.lstat().st_mode, entry.lstat().st_mtime_ns) for entry in folder.iterdir())


def an_evening(desktop, home):
    settings = (Path(desktop.home.name) / "Pylox.ini").read_text(encoding="utf-8")
    port = re.search(r"^Port *= *(\d+)", settings, re.MULTILINE).group(1)
    desktop.environment["PYLOX_HOME"] = str(home)
    client = [*AS_NOBODY, desktop.programs / "PyloxChat", f"-port{port}~", "-cid1", "-cnmLobby~"]
    robin = desktop.start(client)
    room = wait_for("the room is shown", lambda: desktop.window_of(robin))
    wait_for("Robin is in the room", lambda: "<NJC" in desktop.said())
    desktop.type_into(room, "hello all the same")
    wait_for("the words are sent", lambda: "hello all the same" in desktop.said())
    desktop.command("whisper u1 psst")
    private = wait_for("somebody writes", lambda: desktop.window_of(robin, "Private Message"))
    desktop.activate(private, "Escape")  # and its place is to be kept
    wait_for("the conversation is closed", lambda: not desktop.window_of(robin, "Private Message"))
    desktop.activate(room, "alt+x")
    ends(robin)


def main():
    with tempfile.TemporaryDirectory() as parent, Desktop(sys.argv[1], messenger_options=["--skin", "Light"]) as desktop:
        Path(parent).chmod(0o755)
        home = Path(parent) / "home"
        home.mkdir()
        spoil(home)
        before = state(home)
        an_evening(desktop, home)
        assert state(home) == before, state(home)
        home.chmod(0o755)
    print("nothing could be read or written, and the evening went on")


if __name__ == "__main__":
    main()
