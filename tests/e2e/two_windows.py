#!/usr/bin/env python3
"""Two clients on one messenger, in real windows on a display without a screen, driven by the keyboard alone.

two_windows.py BIN: the folder of the programs.
"""

import re
import sys

from desktop import Desktop, wait_for


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
