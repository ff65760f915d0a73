#!/usr/bin/env python3
"""Two clients on one messenger, in real windows on a display without a screen, driven by the keyboard alone.

two_windows.py BIN: the folder of the programs.
"""

import os
import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATIENCE_SECONDS = 20


def wait_for(what, look):
    """The first result of look() that is true; a failed assertion when none comes in time."""
    end = time.monotonic() + PATIENCE_SECONDS
    while time.monotonic() < end:
        if result := look():
            return result
        time.sleep(0.05)
    raise AssertionError(f"did not happen: {what}")


class Desktop:
    """A display, a window manager and a messenger; all end with it."""

    def __init__(self, programs):
        self.programs = Path(programs)
        self.home = tempfile.TemporaryDirectory()
        self.running = []
        more = {"PYLOX_HOME": self.home.name, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8"}
        self.environment = {**os.environ, **more, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}

    def __enter__(self):
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1600x900x24"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        self.start(["openbox"])
        self.log = Path(self.home.name) / "messenger.log"
        self.start([self.programs / "pylox-messenger", "--home", self.home.name, "--verbose"], self.log)
        wait_for("the messenger listens", lambda: "listening on" in self.said())
        return self

    def __exit__(self, *_):
        for process in reversed(self.running):
            process.terminate()
            process.wait()
        self.home.cleanup()

    def start(self, command, log=None, **more):
        output = open(log, "wb") if log else subprocess.DEVNULL
        inputs = {"env": self.environment, "stdin": subprocess.DEVNULL}
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.STDOUT, **inputs, **more)
        self.running.append(process)
        return process

    def said(self):
        return self.log.read_text(encoding="utf-8", errors="replace")

    def tool(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True, check=False).stdout.strip()

    def window_of(self, process):
        found = self.tool("xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", ".").split()
        return found[-1] if found else None

    def client(self, *arguments):
        process = self.start([self.programs / "PyloxChat", *arguments])
        return process, wait_for("a window is shown", lambda: self.window_of(process))

    def type_into(self, window, text):
        """Types like a person who has clicked the window's title: the message box has the focus by itself."""
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.tool("xdotool", "type", "--delay", "5", text)
        self.tool("xdotool", "key", "Return")


def two_people_talk(desktop):
    room = ["-cid1", "-cnmLobby~"]
    robin, robins_window = desktop.client(*room)
    sasha, sashas_window = desktop.client(*room)
    wait_for("both are in the room", lambda: desktop.said().count("<NJC") >= 2)
    assert "Lobby" in desktop.tool("xdotool", "getwindowname", robins_window)

    for window, text in [(robins_window, "hello from the left"), (sashas_window, "hello from the right")]:
        desktop.type_into(window, text)
        wait_for(f"the other client was sent: {text}", lambda: re.search("<RCMSG .*" + text, desktop.said()))

    desktop.tool("xdotool", "windowactivate", "--sync", sashas_window)
    desktop.tool("xdotool", "key", "alt+x")
    wait_for("Exit ends the program", lambda: sasha.poll() is not None)
    assert sasha.returncode == 0, sasha.returncode
    desktop.tool("xdotool", "windowactivate", "--sync", robins_window)
    desktop.tool("xdotool", "key", "alt+F4")
    wait_for("the window manager's close ends the program", lambda: robin.poll() is not None)
    assert robin.returncode == 0, robin.returncode
    assert desktop.said().count("<KLC r") == 2, "both have left the room"


def without_a_messenger(desktop):
    process, window = desktop.client("-port1~")
    assert desktop.tool("xdotool", "getwindowname", window).startswith("Messenger not found")
    desktop.tool("xdotool", "windowactivate", "--sync", window)
    desktop.tool("xdotool", "key", "Return")
    wait_for("the program ends", lambda: process.poll() is not None)
    assert process.returncode == 1, process.returncode


def main():
    with Desktop(sys.argv[1]) as desktop:
        two_people_talk(desktop)
        without_a_messenger(desktop)
    print("two people talked, and a client without a messenger said so")


if __name__ == "__main__":
    main()
