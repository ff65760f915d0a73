"""Buttons, tabs, window borders and frames of both skins."""

from shapes import *


# ---- buttons --------------------------------------------------------------------------------------------

def soft_button(w, h, state, mark=None, r=9, strong=False):
    p = BIRCH
    looks = {
        "normal": (p["line"], p["paper"], p["lip"]),
        "over": (p["accent"], p["tint"], p["deep"]),
        "clicked": (p["deep"], p["tint2"], None),
        "disabled": ("#dde3db", "#eef1ec", None),
        "down": (p["deep"], p["tint2"], None),
    }
    if strong:
        looks["normal"] = (p["accent"], p["tint2"], p["deep"])
        looks["over"] = (p["deep"], p["tint3"], p["deep"])
        looks["clicked"] = (p["deep"], "#93d5b8", None)
    if state == "focus":
        ground = p["tint2"] if strong else p["paper"]
        parts = [rect(0, 0, w, h, p["deep"] if strong else p["accent"], r),
                 rect(2, 2, w - 4, h - 4, p["paper"], r - 2),
                 rect(3, 3, w - 6, h - 6, ground, r - 3)]
    else:
        border, fill, lip = looks[state]
        parts = soft_box(w, h, border, fill, r, lip)
    if mark:
        parts.append(mark(p["mute"] if state == "disabled" else p["deep"]))
    return svg(w, h, *parts)


def cut_button(w, h, state, mark=None, c=6, strong=False):
    p = LANTERN
    looks = {
        "normal": (p["line"], p["raise"], p["raise2"]),
        "over": (p["dim"], p["raise2"], "#3a4353"),
        "clicked": (p["amber"], p["sunk"], None),
        "disabled": ("#2a303b", "#1a1e26", None),
        "down": (p["amber"], p["glow"], None),
    }
    if strong:
        looks["normal"] = (p["dim"], p["glow"], "#553c1a")
        looks["over"] = (p["amber"], p["glow2"], "#6a4b20")
        looks["clicked"] = (p["amber"], "#2a1d0d", None)
    if state == "focus":
        ground = p["glow"] if strong else p["raise"]
        parts = [polygon(cut_points(0, 0, w, h, c), p["amber"]),
                 polygon(cut_points(2, 2, w - 4, h - 4, c - 1), p["hair"]),
                 polygon(cut_points(3, 3, w - 6, h - 6, c - 2), ground)]
    else:
        border, fill, top = looks[state]
        parts = cut_box(w, h, border, fill, c, top=top)
    if mark:
        parts.append(mark(p["mute"] if state == "disabled" else p["amber"]))
    return svg(w, h, *parts)


STATES = ("normal", "over", "clicked", "disabled", "focus")


def button_set(name, w, h, draw, states=STATES):
    pictures = {f"{name}-{state}": draw(w, h, state) for state in states}
    pictures[f"{name}-mask"] = svg(w, h, rect(0, 0, w, h, "#000000"))
    return pictures


def menu_mark(y):
    return lambda colour: "".join(rect(12, y + dy, 11, 1, colour) for dy in (0, 4, 8))


def exit_mark(y, join):
    def mark(colour):
        door = f"M18.5 {y + 0.5} H12.5 V{y + 10.5} H18.5"
        arrow = f"M16 {y + 5.5} H22.5 M20 {y + 3} L22.5 {y + 5.5} L20 {y + 8}"
        return path(door + " " + arrow, "none", colour, 1, stroke_linejoin=join)
    return mark


def info_mark(x, y, shape):
    def mark(colour):
        frame = (circle(x + 7, y + 7, 6.5, "none", colour, 1) if shape == "round" else
                 polygon(cut_points(x + 0.5, y + 0.5, 13, 13, 3.5), "none", stroke=colour))
        return frame + rect(x + 6, y + 3, 2, 2, colour) + rect(x + 6, y + 6, 2, 5, colour)
    return mark


def soft_tab(w, h, state):
    p = BIRCH
    if state == "down":
        return svg(w, h, *soft_box(w, h, p["accent"], p["paper"], 9), rect(10, 8, 3, 12, p["accent"], 1.5))
    looks = {"normal": (p["line"], "#e9eee7"), "over": (p["accent"], p["tint"]),
             "clicked": (p["deep"], p["tint2"]), "disabled": ("#dde3db", "#eef1ec")}
    if state == "focus":
        return svg(w, h, rect(0, 0, w, h, p["accent"], 9), rect(2, 2, w - 4, h - 4, "#e9eee7", 7))
    border, fill = looks[state]
    return svg(w, h, *soft_box(w, h, border, fill, 9))


def cut_tab_points(x, y, w, h, c):
    return [(x + c, y), (x + w, y), (x + w, y + h), (x, y + h), (x, y + c)]


def cut_tab(w, h, state):
    p = LANTERN
    looks = {"normal": ("#2d3440", "#1b2029"), "over": (p["dim"], p["raise"]),
             "clicked": (p["amber"], p["sunk"]), "disabled": ("#262c36", "#191d25"),
             "down": (p["line"], p["panel"]), "focus": (p["amber"], "#1b2029")}
    border, fill = looks[state]
    thick = 2 if state == "focus" else 1
    parts = [polygon(cut_tab_points(0, 0, w, h, 8), border),
             polygon(cut_tab_points(thick, thick, w - 2 * thick, h - 2 * thick, 7), fill)]
    if state == "down":
        parts.append(polygon([(8, 0), (w, 0), (w, 2), (8.5, 2), (1.5, 9), (0, 9), (0, 8)], p["amber"]))
    return svg(w, h, *parts)


def soft_system(kind, state):
    p = BIRCH
    ground = {"normal": None, "over": p["tint2"], "clicked": p["tint3"]}[state]
    colour = p["soft"] if state == "normal" else p["deep"]
    if kind == "close" and state != "normal":
        ground, colour = ("#f9d9da", "#b3202c") if state == "over" else ("#f0b6b9", "#8f121d")
    parts = [rect(2, 0, 20, 20, ground, 8) if ground else None]
    line = {"stroke_linecap": "round", "stroke_linejoin": "round"}
    if kind == "close":
        parts.append(path("M8 6 L16 14 M16 6 L8 14", "none", colour, 1.6, **line))
    elif kind == "min":
        parts.append(rect(8, 12, 8, 2, colour, 1))
    else:
        parts.append(path("M9 7.6 C9 4.4 15 4.4 15 7.6 C15 9.6 12 9.6 12 11.8", "none", colour, 1.6, **line))
        parts.append(circle(12, 14.6, 1.1, colour))
    return svg(24, 20, *parts)


def cut_system(kind, state):
    p = LANTERN
    ground = {"normal": None, "over": p["raise2"], "clicked": p["glow"]}[state]
    colour = {"normal": p["soft"], "over": "#ffffff", "clicked": p["amber"]}[state]
    if kind == "close" and state != "normal":
        ground, colour = ("#a8323a", "#ffffff") if state == "over" else ("#6f1f26", "#ffd9d9")
    parts = [polygon(cut_points(0, 0, 24, 20, 5), ground) if ground else None]
    if kind == "close":
        parts.append(path("M8 6 L16 14 M16 6 L8 14", "none", colour, 1.5, stroke_linecap="square"))
    elif kind == "min":
        parts.append(rect(7, 13, 10, 2, colour))
    else:
        parts.append(path("M9 8 V5.5 H15 V8.5 L12 10 V12", "none", colour, 1.5))
        parts.append(rect(11, 14, 2, 2, colour))
    return svg(24, 20, *parts)


# ---- window border and frames ---------------------------------------------------------------------------

def soft_window():
    p = BIRCH
    side, low, high = 6, 8, 32

    shade = ('<defs><linearGradient id="a" gradientUnits="userSpaceOnUse" x1="0" y1="1" x2="0" y2="31">'
             f'<stop offset=".3" stop-color="{p["paper"]}"/><stop offset="1" stop-color="#f6f9f5"/>'
             "</linearGradient></defs>")

    def corner(w, h, outer, inner, *more):
        return svg(w, h, shade, path(outer, p["edge"], **CRISP), path(inner, "url(#a)"), *more)

    dots = [rect(x, y, 1, 1, p["edge"], **CRISP) for x, y in ((8, 1), (5, 4), (8, 4))]
    return {
        "window-top": svg(64, high, shade, rect(0, 0, 64, 1, p["edge"]), rect(0, 1, 64, high - 2, "url(#a)"),
                          rect(0, high - 1, 64, 1, p["hair"])),
        "window-top-left": corner(16, high, "M16 0 H9 A9 9 0 0 0 0 9 V32 H16 Z",
                                  "M16 1 H9 A8 8 0 0 0 1 9 V32 H16 Z",
                                  rect(1, high - 1, 15, 1, p["hair"]), rect(7, 10, 3, 12, p["accent"], 1.5)),
        "window-top-right": corner(12, high, "M0 0 H3 A9 9 0 0 1 12 9 V32 H0 Z",
                                   "M0 1 H3 A8 8 0 0 1 11 9 V32 H0 Z",
                                   rect(0, high - 1, 11, 1, p["hair"])),
        "window-left": svg(side, 48, rect(0, 0, side, 48, p["face"]), rect(0, 0, 1, 48, p["edge"])),
        "window-right": svg(side, 48, rect(0, 0, side, 48, p["face"]), rect(side - 1, 0, 1, 48, p["edge"])),
        "window-bottom": svg(48, low, rect(0, 0, 48, low, p["face"]), rect(0, low - 1, 48, 1, p["edge"])),
        "window-bottom-left": svg(12, low, path("M0 0 A8 8 0 0 0 8 8 H12 V0 Z", p["edge"], **CRISP),
                                  path("M1 0 A7 7 0 0 0 8 7 H12 V0 Z", p["face"])),
        "window-bottom-right": svg(12, low, path("M12 0 A8 8 0 0 1 4 8 H0 V0 Z", p["edge"], **CRISP),
                                   path("M11 0 A7 7 0 0 1 4 7 H0 V0 Z", p["face"]), *dots),
    }


def cut_window():
    p = LANTERN
    side, low, high = 4, 5, 28
    fade = gradient("a", ((0, p["amber"]), (0.35, p["dim"]), (1, p["edge"])), 1, 0)
    glow = gradient("c", ((0, p["amber"], 0.4), (1, p["dim"], 0)), 1, 0)
    fall = gradient("b", ((0, p["amber"]), (1, p["edge"])))
    corner = 12
    return {
        "window-top": svg(32, high, rect(0, 0, 32, high, p["strip"]), rect(0, 0, 32, 1, p["edge"]),
                          rect(0, high - 1, 32, 1, p["hair"])),
        "window-top-left": svg(
            128, high, "<defs>" + fade + glow + fall + "</defs>",
            polygon([(corner, 0), (128, 0), (128, high), (0, high), (0, corner)], p["strip"], **CRISP),
            rect(1, high - 1, 127, 1, p["hair"]),
            rect(corner, 0, 116, 1, "url(#a)"), rect(corner, 1, 116, 1, "url(#c)"),
            rect(0, corner, 1, high - corner, "url(#b)"),
            polygon([(corner, 0), (corner + 2, 0), (corner + 2, 1), (1, corner + 2), (0, corner + 2),
                     (0, corner)], p["amber"], **CRISP)),
        "window-top-right": svg(10, high, polygon([(0, 0), (8, 0), (10, 2), (10, high), (0, high)], p["edge"],
                                                  **CRISP),
                                polygon([(0, 1), (8, 1), (9, 2), (9, high), (0, high)], p["strip"], **CRISP),
                                rect(0, high - 1, 9, 1, p["hair"])),
        "window-left": svg(side, 32, rect(0, 0, side, 32, p["face"]), rect(0, 0, 1, 32, p["edge"])),
        "window-right": svg(side, 32, rect(0, 0, side, 32, p["face"]), rect(side - 1, 0, 1, 32, p["edge"])),
        "window-bottom": svg(32, low, rect(0, 0, 32, low, p["face"]), rect(0, low - 1, 32, 1, p["edge"])),
        "window-bottom-left": svg(8, low, polygon([(0, 0), (0, 3), (2, 5), (8, 5), (8, 0)], p["edge"], **CRISP),
                                  polygon([(1, 0), (1, 3), (2, 4), (8, 4), (8, 0)], p["face"], **CRISP)),
        "window-bottom-right": svg(8, low, polygon([(8, 0), (8, 3), (6, 5), (0, 5), (0, 0)], p["dim"], **CRISP),
                                   polygon([(7, 0), (7, 3), (6, 4), (0, 4), (0, 0)], p["face"], **CRISP)),
    }


def frame(size, length, face, line, ground, corners, top_line=None):
    """Eight pieces; outside the corners they show the face of the window on which every frame stands."""
    names = ("top-left", "top-right", "bottom-left", "bottom-right")
    pictures = {}
    for name, turn in zip(names, ((1, 1), (-1, 1), (1, -1), (-1, -1))):
        shift = f"translate({0 if turn[0] > 0 else size} {0 if turn[1] > 0 else size})"
        parts = "".join(corners(name))
        pictures[f"frame-{name}"] = svg(size, size, rect(0, 0, size, size, face),
                                        f'<g transform="{shift} scale({turn[0]} {turn[1]})">{parts}</g>')
    pictures["frame-top"] = svg(length, size, rect(0, 0, length, size, ground),
                                rect(0, 0, length, 1, top_line or line))
    pictures["frame-bottom"] = svg(length, size, rect(0, 0, length, size, ground),
                                   rect(0, size - 1, length, 1, line))
    pictures["frame-left"] = svg(size, length, rect(0, 0, size, length, ground), rect(0, 0, 1, length, line))
    pictures["frame-right"] = svg(size, length, rect(0, 0, size, length, ground),
                                  rect(size - 1, 0, 1, length, line))
    return pictures


def soft_frame():
    p = BIRCH

    def corner(_):
        return path("M0 6 A6 6 0 0 1 6 0 V6 Z", p["line"]), path("M1 6 A5 5 0 0 1 6 1 V6 Z", p["paper"])

    return frame(6, 48, p["face"], p["line"], p["paper"], corner)


def cut_frame():
    p = LANTERN

    def corner(name):
        if name in ("top-left", "bottom-right"):
            return (polygon([(4, 0), (5, 0), (5, 5), (0, 5), (0, 4)], p["edge"]),
                    polygon([(4.4, 1), (5, 1), (5, 5), (1, 5), (1, 4.4)], p["panel"]),
                    rect(4, 0, 1, 1, p["line"]), rect(0, 4, 1, 1, p["line"]))
        return rect(0, 0, 5, 5, p["line"]), rect(1, 1, 4, 4, p["panel"])

    return frame(5, 32, p["face"], p["line"], p["panel"], corner)
