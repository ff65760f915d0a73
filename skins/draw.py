#!/usr/bin/env python3
"""Draws the pictures of both skins and the program's icon as SVG: draw.py writes light/svg and dark/svg beside
itself, and the icon into share/icons.

Everything is laid out in pixels at 100 %: edges on whole numbers, one-pixel strokes on halves.
Light ("Birch") is paper, round corners and leaf green; its icons are outlines with a pale fill.
Dark ("Lantern") is ink, cut corners and a little amber; its icons are solid.
"""

import os
import shutil
import sys

sys.dont_write_bytecode = True
from controls import *
from faces import *
from icons import *
from program_icon import program_icon
from shapes import *

HERE = os.path.dirname(os.path.abspath(__file__))


# ---- format buttons, tiles and the rest -----------------------------------------------------------------

def overlays(light):
    colour = BIRCH["ink"] if light else LANTERN["ink"]
    bold = path("M5 3 H8.5 A2.5 2.5 0 0 1 8.5 8 H5 M5 8 H9 A2.5 2.5 0 0 1 9 13 H5 M5 2 V14", "none", colour, 2)
    slant = path("M7 3 H12 M4 13 H9 M9.5 3 L6.5 13", "none", colour, 2,
                 stroke_linecap="round" if light else "butt")
    under = path("M5 1 V7 A3 3 0 0 0 11 7 V1", "none", colour, 2) + rect(3, 13, 10, 1, colour)
    ink = "#4a2c0a" if light else "#2b1703"
    face = circle(8, 8, 6.5, "#ffe27a", "#8a6100", 1) if light else rect(1, 1, 14, 14, "#ffc861", 5)
    look = rect(5, 5, 2, 3, ink, 1) + rect(9, 5, 2, 3, ink, 1)
    mouth = path("M4.8 9.7 Q8 13.1 11.2 9.7", "none", ink, 1.4, stroke_linecap="round")
    return {"overlay-bold": svg(16, 16, bold), "overlay-italic": svg(16, 16, slant),
            "overlay-underline": svg(16, 16, under),
            "overlay-emoticon": svg(16, 16, face, look, mouth)}


def light_tiles():
    """Laid paper: one faint line in four."""
    def laid(side, colour):
        lines = [rect(0, y, side, 1, colour) for y in range(3, side, 4)]
        return svg(side, side, rect(0, 0, side, side, BIRCH["paper"]), *lines)

    return {"menu-ground": laid(16, "#f9fbf8"), "board-ground": laid(32, "#fbfcfa")}


def dark_tiles():
    return {"menu-ground": svg(16, 16, rect(0, 0, 16, 16, "#1a1f28"), rect(3, 3, 1, 1, "#1f252f"),
                               rect(11, 11, 1, 1, "#1f252f")),
            "board-ground": svg(16, 16, rect(0, 0, 16, 16, LANTERN["panel"]), rect(3, 3, 1, 1, "#141820"),
                                rect(11, 11, 1, 1, "#141820"))}


def skin(is_light, pieces, system, button, format_corner, join, info, tab, icons, face):
    """All pictures of a skin by name; what it does not share with the other one comes as arguments."""
    pictures = {"mask": svg(1, 1, rect(0, 0, 1, 1, MASK))}
    pictures |= pieces | overlays(is_light)
    for kind in ("close", "min", "help"):
        for state in ("normal", "over", "clicked"):
            pictures[f"system-{kind}-{state}"] = system(kind, state)
    pictures |= button_set("button", 84, 28, button)
    pictures |= button_set("format", 26, 26, lambda w, h, s: button(w, h, s, **format_corner), STATES + ("down",))
    pictures |= button_set("font", 60, 26, button)
    pictures |= button_set("emotions", 84, 26, button)
    pictures |= button_set("send", 72, 30, lambda w, h, s: button(w, h, s, strong=True))
    pictures |= button_set("room-menu", 96, 28, lambda w, h, s: button(w, h, s, menu_mark(9)))
    pictures |= button_set("exit", 96, 28, lambda w, h, s: button(w, h, s, exit_mark(8, join)))
    pictures |= button_set("info", 132, 26, lambda w, h, s: button(w, h, s, info_mark(7, 6, info)))
    pictures |= button_set("select", 110, 28, tab, STATES + ("down",))
    pictures["web"] = web(is_light)
    pictures |= heading_icons(is_light) | mood_icons(is_light) | menu_icons(icons()) | status_icons(icons())
    return pictures | emoticons(face)


def light_skin():
    pieces = soft_window() | soft_frame() | light_tiles()
    return skin(True, pieces, soft_system, soft_button, {"r": 8}, "round", "round", soft_tab, Outline, light_emoticon)


def dark_skin():
    pieces = cut_window() | cut_frame() | dark_tiles()
    return skin(False, pieces, cut_system, cut_button, {"c": 5}, "miter", "cut", cut_tab, Solid, dark_emoticon)


def write(folder, pictures):
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    for picture, text in pictures.items():
        with open(os.path.join(folder, picture + ".svg"), "w", encoding="utf-8", newline="\n") as out:
            out.write(text)
    print(f"{os.path.relpath(folder)}: {len(pictures)} pictures")


def main():
    write(os.path.join(HERE, "light", "svg"), light_skin())
    write(os.path.join(HERE, "dark", "svg"), dark_skin())
    write(os.path.join(HERE, "..", "share", "icons"), program_icon())


if __name__ == "__main__":
    sys.exit(main())
