"""What both skins are drawn with: SVG elements, colours, and the outlines of boxes."""

import colorsys
import math

MASK = "#ff00ff"

BIRCH = {
    "face": "#f2f5f0", "paper": "#ffffff", "line": "#c6d1c4", "lip": "#aebcac", "edge": "#93a595",
    "hair": "#dde5db", "ink": "#20302a", "soft": "#4d6157", "mute": "#8c998f",
    "accent": "#1fae7a", "deep": "#0c7a55", "tint": "#e6f6ee", "tint2": "#c9eddc", "tint3": "#aee2ca",
}

LANTERN = {
    "face": "#171b23", "strip": "#1d222c", "panel": "#0f1217", "line": "#3a4352", "edge": "#4d586a",
    "raise": "#242a36", "raise2": "#2d3543", "sunk": "#11141b", "hair": "#0b0d12",
    "ink": "#dfe4ec", "soft": "#b4bdcb", "mute": "#778294",
    "amber": "#ffb347", "dim": "#a9701f", "glow": "#3b2a14", "glow2": "#4c3618",
}


# ---- writing SVG ----------------------------------------------------------------------------------------

def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".") if isinstance(value, float) else str(value)


def tag(name, **attributes):
    text = "".join(f' {key.replace("_", "-")}="{number(value)}"' for key, value in attributes.items()
                   if value is not None)
    return f"<{name}{text}/>"


def rect(x, y, w, h, fill, r=None, **more):
    return tag("rect", x=x, y=y, width=w, height=h, rx=r, fill=fill, **more)


def path(d, fill="none", stroke=None, width=None, **more):
    return tag("path", d=d, fill=fill, stroke=stroke, stroke_width=width, **more)


def circle(cx, cy, r, fill="none", stroke=None, width=None, **more):
    return tag("circle", cx=cx, cy=cy, r=r, fill=fill, stroke=stroke, stroke_width=width, **more)


def svg(w, h, *parts):
    body = "\n".join(part for part in parts if part)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{w}" height="{h}" viewBox="0 0 {w} {h}">\n'
            f"{body}\n</svg>\n")


def polygon(points, fill, **more):
    return path("M" + " L".join(f"{number(x)} {number(y)}" for x, y in points) + " Z", fill, **more)


def gradient(name, stops, x2=0, y2=1):
    parts = "".join(f'<stop offset="{offset}" stop-color="{colour}"'
                    + "".join(f' stop-opacity="{value}"' for value in opacity) + "/>"
                    for offset, colour, *opacity in stops)
    return f'<linearGradient id="{name}" x1="0" y1="0" x2="{x2}" y2="{y2}">{parts}</linearGradient>'


CRISP = {"shape_rendering": "crispEdges"}


# ---- colours --------------------------------------------------------------------------------------------

def hsv(colour):
    return colorsys.rgb_to_hsv(*(int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5)))


def from_hsv(h, s, v):
    return "#" + "".join(f"{round(c * 255):02x}" for c in colorsys.hsv_to_rgb(h % 1, s, v))


def lighter(colour, factor):
    h, s, v = hsv(colour)
    v *= factor
    return from_hsv(h, max(0.0, s - max(0.0, v - 1)), min(v, 1.0))


def darker(colour, factor, turn=0.0):
    h, s, v = hsv(colour)
    return from_hsv(h + turn, s, v / factor)


# ---- shapes of the two skins ----------------------------------------------------------------------------

def soft_box(w, h, border, fill, r=9, lip=None, thick=1):
    """A rounded key: border, ground, and a darker lower lip where one is given."""
    parts = [rect(0, 0, w, h, lip or border, r)]
    if lip:
        parts.append(rect(0, 0, w, h - 1, border, r))
    low = 2 if lip else thick
    parts.append(rect(thick, thick, w - 2 * thick, h - thick - low, fill, r - thick))
    return parts


def cut_points(x, y, w, h, c):
    """A rectangle whose upper left and lower right corners are cut."""
    return [(x + c, y), (x + w, y), (x + w, y + h - c), (x + w - c, y + h), (x, y + h), (x, y + c)]


def cut_box(w, h, border, fill, c=6, thick=1, top=None):
    parts = [polygon(cut_points(0, 0, w, h, c), border),
             polygon(cut_points(thick, thick, w - 2 * thick, h - 2 * thick, c - 1), fill)]
    if top:
        parts.append(rect(c, thick, w - c - thick, 1, top))
    return parts


def rounded(x, y, w, h, r):
    if not r:
        return f"M{number(x)} {number(y)} h{number(w)} v{number(h)} h{number(-w)} Z"
    n = number
    return (f"M{n(x + r)} {n(y)} h{n(w - 2 * r)} a{n(r)} {n(r)} 0 0 1 {n(r)} {n(r)} v{n(h - 2 * r)} "
            f"a{n(r)} {n(r)} 0 0 1 {n(-r)} {n(r)} h{n(2 * r - w)} a{n(r)} {n(r)} 0 0 1 {n(-r)} {n(-r)} "
            f"v{n(2 * r - h)} a{n(r)} {n(r)} 0 0 1 {n(r)} {n(-r)} Z")


def ring(cx, cy, rx, ry=None):
    ry = rx if ry is None else ry
    n = number
    return f"M{n(cx - rx)} {n(cy)} a{n(rx)} {n(ry)} 0 1 0 {n(2 * rx)} 0 a{n(rx)} {n(ry)} 0 1 0 {n(-2 * rx)} 0 Z"
