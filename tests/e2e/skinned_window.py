#!/usr/bin/env python3
"""A window that wears a skin, on a display with a coloured ground: its corners are cut away, its title strip moves
it, its corner resizes it, and with the desktop's frame in the settings it has none of that.

skinned_window.py BIN [SCREENSHOT]: the folder of the programs; a copy of what was seen as a PPM picture.
"""

import re
import struct
import sys
from pathlib import Path

from desktop import Desktop, ends, wait_for

GROUND = (0xC0, 0x40, 0x60)
WIDTH, HEIGHT = 1600, 900


class Screen:
    """The pixels of the display, from the file that the server keeps them in."""

    def __init__(self, folder):
        data = (Path(folder) / "Xvfb_screen0").read_bytes()
        header = struct.unpack(">25I", data[:100])
        self.row_bytes = header[12]
        self.pixels = data[header[0] + header[19] * 12:]

    def at(self, x, y):
        blue, green, red = self.pixels[y * self.row_bytes + 4 * x:y * self.row_bytes + 4 * x + 3]
        return red, green, blue

    def save(self, path):
        rows = (self.at(x, y) for y in range(HEIGHT) for x in range(WIDTH))
        Path(path).write_bytes(b"P6 %d %d 255\n" % (WIDTH, HEIGHT) + b"".join(map(bytes, rows)))


def geometry(desktop, window):
    words = desktop.tool("xdotool", "getwindowgeometry", "--shell", window)
    return tuple(int(re.search(rf"^{name}=(-?\d+)", words, re.M)[1]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


def drag(desktop, start, way):
    # Without waiting for the pointer: xdotool would wait in vain for one that is there already.
    desktop.tool("xdotool", "mousemove", *map(str, start), "sleep", "0.2", "mousedown", "1", "sleep", "0.2")
    for part in (0.05, 0.5, 1):
        place = [str(round(a + part * b)) for a, b in zip(start, way)]
        desktop.tool("xdotool", "mousemove", "--sync", *place, "sleep", "0.2")
    desktop.tool("xdotool", "mouseup", "1")


def becomes(desktop, window, wanted):
    """The way to the first movement is not gone, since that begins the dragging: a few pixels."""

    def look():
        before, now = geometry(desktop, window), geometry(desktop, window)
        return now if before == now and all(abs(a - b) <= 12 for a, b in zip(now, wanted)) else None

    return wait_for(f"the window's geometry becomes {wanted}", look)


def corners_are_cut(desktop, window, skin):
    def look():
        x, y, width, height = geometry(desktop, window)
        screen = Screen(desktop.home.name)
        inside = [screen.at(x + width // 2, y + 2), screen.at(x + 2, y + height // 2)]
        return screen if screen.at(x, y) == GROUND and GROUND not in inside else None

    return wait_for(f"the corners of {skin} show the ground", look)


def wears(desktop, skin, screenshot):
    process, window = desktop.client("--skin-gallery", str(skin))
    screen = corners_are_cut(desktop, window, skin.stem)
    if screenshot:
        screen.save(screenshot)

    x, y, width, height = geometry(desktop, window)
    desktop.tool("xdotool", "mousemove", "--sync", str(x + 200), str(y + 12), "click", "1")
    assert geometry(desktop, window) == (x, y, width, height), "a press alone moves nothing"
    drag(desktop, (x + 200, y + 12), (60, 40))
    x, y, *_ = becomes(desktop, window, (x + 60, y + 40, width, height))
    drag(desktop, (x + width - 4, y + height - 4), (-150, -80))
    *_, width, height = becomes(desktop, window, (x, y, width - 150, height - 80))
    drag(desktop, (x + width - 4, y + height - 4), (-700, -500))
    becomes(desktop, window, (x, y, 500, 400))
    corners_are_cut(desktop, window, skin.stem)
    desktop.activate(window, "alt+F4")
    ends(process)


def main():
    with Desktop(sys.argv[1], screen_folder=True) as desktop:
        desktop.tool("xsetroot", "-solid", "#%02x%02x%02x" % GROUND)
        skins = Path(sys.argv[1]) / ".." / "share" / "pylox-chat" / "skins"
        for name in ("Light", "Dark"):
            wears(desktop, skins / f"{name}.skn", sys.argv[2] + name + ".ppm" if len(sys.argv) > 2 else None)
    print("both skins were worn, moved and resized")


if __name__ == "__main__":
    main()
