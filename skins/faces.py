"""The emoticons of both skins, from one table of drawings."""

import math

from emoticons import DISC, EMOTICONS, INK, LOW_DISC
from shapes import *


# ---- emoticons ------------------------------------------------------------------------------------------

def outline_of(text):
    """The path in SVG's words: an ellipse becomes two arcs."""
    words, out = text.split(), []
    i = 0
    while i < len(words):
        if words[i].startswith("E"):
            cx, cy, rx, ry = (float(word.lstrip("E")) for word in words[i:i + 4])
            out.append(ring(cx, cy, rx, ry))
            i += 4
        else:
            out.append(words[i])
            i += 1
    return " ".join(out)


def split_alpha(colour):
    if colour and len(colour) == 9:
        return colour[:7], round(int(colour[7:], 16) / 255, 2)
    return colour, None


def light_emoticon(layers):
    defs, parts, known = [], [], {}
    for text, fill, line, width in layers:
        paint, alpha = split_alpha(fill)
        if paint and paint not in known and not alpha:
            known[paint] = "abcdefgh"[len(known)]
            defs.append(gradient(known[paint], ((0, lighter(paint, 1.12)), (1, darker(paint, 1.08)))))
        parts.append(path(outline_of(text), f"url(#{known[paint]})" if paint in known else paint or "none", line,
                          width or None, fill_opacity=alpha,
                          stroke_linecap="round" if line else None, stroke_linejoin="round" if line else None))
    return svg_40(defs, parts)


def svg_40(defs, parts):
    head = "<defs>" + "".join(defs) + "</defs>" if defs else ""
    body = "\n".join([head] + parts if head else parts)
    return f'<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20" viewBox="0 0 40 40">\n{body}\n</svg>\n'


DARK_INK = "#351a06"


def dark_emoticon(layers):
    """Rounded squares lit from above, without outlines; symbols glow in one colour."""
    defs, parts, known = [], [], {}
    for text, fill, line, width in layers:
        if text in (DISC, LOW_DISC):
            low = text == LOW_DISC
            fill = {"#ffd23c": "#ffc54a"}.get(fill, fill)
            box = (5, 7, 30, 31) if low else (2, 2, 36, 36)
            parts.append(rect(*box, f"url(#{ball(defs, known, fill)})", 13 if not low else 12))
            parts.append(rect(box[0] + 5, box[1] + 2, box[2] - 10, 7, "#ffffff", 3.5, fill_opacity=0.28))
            continue
        paint, alpha = split_alpha(fill)
        if line == INK:
            line = DARK_INK
        if paint == INK:
            paint = DARK_INK
        if paint and line:
            line, width = (line, 1) if paint == "#ffffff" and line == DARK_INK else (None, 0)
        if line and not paint:
            line = {"#1d5fa8": "#2f86d6"}.get(line, line)
        flat = not paint or alpha or paint in (DARK_INK, "#ffffff")
        ground = paint if flat else f"url(#{slope(defs, known, paint)})"
        parts.append(path(outline_of(text), ground or "none", line, (width * 1.08 if not paint else width) or None,
                          fill_opacity=alpha, stroke_linecap="round" if line else None,
                          stroke_linejoin="round" if line else None))
    return svg_40(defs, parts)


def ball(defs, known, colour):
    key = "ball" + colour
    if key not in known:
        known[key] = "abcdefgh"[len(known)]
        stops = ((0, lighter(colour, 1.3)), (0.5, colour), (1, darker(colour, 1.22, -0.02)))
        stops = "".join(f'<stop offset="{at}" stop-color="{value}"/>' for at, value in stops)
        defs.append(f'<radialGradient id="{known[key]}" cx=".5" cy=".15" r="1">{stops}</radialGradient>')
    return known[key]


def slope(defs, known, colour):
    if colour not in known:
        known[colour] = "abcdefgh"[len(known)]
        defs.append(gradient(known[colour], ((0, lighter(colour, 1.22)), (1, darker(colour, 1.12)))))
    return known[colour]


def emoticons(draw):
    return {"smiley-" + name.lower().replace(" ", "-"): draw(layers) for name, layers in EMOTICONS.items()}


def web(light):
    p = BIRCH if light else LANTERN
    if light:
        return svg(20, 20, circle(9, 11, 7.5, p["tint2"], p["deep"], 1),
                   path("M1.5 11 H16.5 M9 3.5 C4.5 7 4.5 15 9 18.5 C13.5 15 13.5 7 9 3.5 Z", "none", p["deep"], 1),
                   path("M12 1 H19 V8 Z", p["paper"]),
                   path("M13 7 L18 2 M14 1.5 H18.5 V6", "none", p["deep"], 1.6, stroke_linecap="round"))
    return svg(20, 20, path("M6.5 4.5 H10 M15.5 10 V17.5 H2.5 V4.5 H10", "none", p["soft"], 1.6),
               path("M9 11 L16.5 3.5 M11 2.5 H17.5 V9", "none", p["amber"], 2))
