"""The small icons of both skins: menus, statuses, headings and moods."""

import math

from shapes import *


# ---- icons ----------------------------------------------------------------------------------------------

class Outline:
    """Light icons: a one-pixel outline with a pale ground, round joins."""

    solid = False
    line, ground, inner, rim = "#4d6157", "#edf3ec", "#4d6157", "#ffffff"
    accent, accent_line, on_accent = "#2fbd89", "#0c7a55", "#ffffff"
    green, green_line, on_green = "#3cc98f", "#0c7a55", "#ffffff"
    warn, warn_line, on_warn = "#ef6a6f", "#b3202c", "#ffffff"
    sun, sun_line, on_sun = "#ffd667", "#9a6a00", "#6b4500"
    blue, blue_line, on_blue = "#8fc1ee", "#2b6cab", "#2b6cab"
    detail, detail_line, detail_warn = "#2fbd89", "#0c7a55", "#b3202c"  # colour on the ground of an icon
    paints = ("#d8434e", "#c98a00", "#0c7a55", "#2b6cab")
    away, away_ground = "#8c998f", "#ffffff"
    join = {"stroke_linejoin": "round", "stroke_linecap": "round"}

    def corner(self, r):
        return r

    def shape(self, d, fill=None, line=None):
        return path(d, fill or self.ground, line or self.line, 1, **self.join)


class Solid(Outline):
    """Dark icons: silhouettes without an outline, details cut into them."""

    solid = True
    line, ground, inner, rim = "#b9c2d0", "#b9c2d0", "#171b23", "#171b23"
    accent, accent_line, on_accent = "#ffb347", "#ffb347", "#2a1a05"
    green, green_line, on_green = "#63d296", "#63d296", "#12151b"
    warn, warn_line, on_warn = "#ff6b6b", "#ff6b6b", "#12151b"
    sun, sun_line, on_sun = "#ffd479", "#ffd479", "#12151b"
    blue, blue_line, on_blue = "#6fb7ff", "#6fb7ff", "#123a5e"
    detail, detail_line, detail_warn = "#171b23", "#7a4f10", "#a8323a"
    paints = ("#b3303a", "#8a5a12", "#24557f", "#2a6b45")
    away, away_ground = "#8893a5", "none"
    join = {"stroke_linejoin": "miter", "stroke_linecap": "butt"}

    def corner(self, r):
        return 0

    def shape(self, d, fill=None, line=None):
        fill = fill or self.ground
        return path(d, fill, fill, 1, **self.join)


class Pen:
    """Draws one icon in one style; all coordinates on a field of 16 by 16."""

    def __init__(self, style):
        self.s = style
        self.parts = []

    def box(self, x, y, w, h, r=2.0, fill=None, line=None):
        r = self.s.corner(r)
        self.parts.append(self.s.shape(rounded(x + 0.5, y + 0.5, w - 1, h - 1, r), fill, line))
        return self

    def shape(self, d, fill=None, line=None):
        self.parts.append(self.s.shape(d, fill, line))
        return self

    def disc(self, cx, cy, r, fill=None, line=None):
        return self.shape(ring(cx, cy, r), fill, line)

    def lines(self, d, colour=None, width=1):
        self.parts.append(path(d, "none", colour or self.s.line, width, **self.s.join))
        return self

    def cut(self, d, width=1):
        return self.lines(d, self.s.inner, width)

    def bar(self, x, y, w, h, colour=None):
        self.parts.append(rect(x, y, w, h, colour or self.s.line, self.s.corner(min(w, h) / 2) or None))
        return self

    def dot(self, cx, cy, r, colour=None):
        self.parts.append(circle(cx, cy, r, colour or self.s.line))
        return self

    # things that several icons share

    def person(self, x=0.0):
        self.disc(x + 6, 4.5, 2.5)
        left, right = x + 1.5, x + 10.5
        return self.shape(f"M{left} 13.5 C{left} 9.5 {x + 3} 8.5 {x + 6} 8.5 "
                          f"C{x + 9} 8.5 {right} 9.5 {right} 13.5 Z")

    def folder(self):
        return self.shape("M1.5 12.5 V3.5 H6 L7.5 5.5 H14.5 V12.5 Z")

    def badge(self, kind, x=12, y=11):
        """A sign at the icon's corner, with a rim that keeps it off what lies below."""
        s = self.s
        if kind == "plus":
            self.bar(x - 4, y - 2, 8, 4, s.rim).bar(x - 2, y - 4, 4, 8, s.rim)
            self.bar(x - 3, y - 1, 6, 2, s.accent_line).bar(x - 1, y - 3, 2, 6, s.accent_line)
        elif kind == "minus":
            self.bar(x - 4, y - 2, 8, 4, s.rim).bar(x - 3, y - 1, 6, 2, s.warn_line)
        elif kind == "cross":
            d = f"M{x - 2} {y - 2} L{x + 2} {y + 2} M{x + 2} {y - 2} L{x - 2} {y + 2}"
            self.lines(d, s.rim, 4).lines(d, s.warn_line, 1.8)
        elif kind == "pencil":
            d = (f"M{x - 3.5} {y + 3.5} L{x - 3} {y + 1} L{x + 1.5} {y - 3.5} L{x + 3.5} {y - 1.5} "
                 f"L{x - 1} {y + 3} Z")
            self.lines(d, s.rim, 3).shape(d, s.accent, s.accent_line)
        elif kind == "swap":
            self.lines(f"M{x - 2} {y - 2.5} H{x + 3} M{x + 1} {y - 4.5} L{x + 3} {y - 2.5} L{x + 1} {y - 0.5} "
                       f"M{x + 3} {y + 2.5} H{x - 2} M{x} {y + 0.5} L{x - 2} {y + 2.5} L{x} {y + 4.5}",
                       s.accent_line)
        return self

    def svg(self):
        return svg(16, 16, *self.parts)


EYE = "M1.5 8 C4 3.5 12 3.5 14.5 8 C12 12.5 4 12.5 1.5 8 Z"
PALETTE = ("M8 1.5 C4.2 1.5 1.5 4.4 1.5 8 C1.5 11.6 4.2 14.5 7.6 14.5 C9.4 14.5 9.2 13 8.6 12 "
           "C8 10.8 8.8 9.8 10.2 9.8 H12 C13.6 9.8 14.5 8.8 14.5 7.4 C14.5 4 11.6 1.5 8 1.5 Z")
APPLE = ("M8 5.2 C6 3.4 2.5 4.4 2.5 8.2 C2.5 11.8 4.6 14.5 6.4 14.5 C7.2 14.5 7.4 14 8 14 "
         "C8.6 14 8.8 14.5 9.6 14.5 C11.4 14.5 13.5 11.8 13.5 8.2 C13.5 4.4 10 3.4 8 5.2 Z")
BUBBLE = "M1.5 2.5 H14.5 V10.5 H8 L4.5 13.5 V10.5 H1.5 Z"
MOON = "M10.5 1.8 A6.5 6.5 0 1 0 14.2 10.4 A5.4 5.4 0 0 1 10.5 1.8 Z"
SHIELD = "M8 1.5 L13.5 3.5 V8 C13.5 11 11 13.4 8 14.5 C5 13.4 2.5 11 2.5 8 V3.5 Z"
MERIDIANS = "M1.5 8 H14.5 M8 1.5 C4 4.5 4 11.5 8 14.5 C12 11.5 12 4.5 8 1.5 Z"
ICING = ("M1.5 10.5 C3 12.5 4.5 12.5 5.5 10.5 C7 12.5 9 12.5 10.5 10.5 "
         "C11.5 12.5 13 12.5 14.5 10.5")
ARROW_IN = "M11.5 7 V13 M8.8 10.6 L11.5 13.4 L14.2 10.6"
CUT_SQUARE = "M5.5 2.5 H13.5 V10.5 L10.5 13.5 H2.5 V5.5 Z"


def user_card(pen, s):
    face = (s.detail, s.detail if s.solid else s.detail_line)
    pen.box(1, 3, 14, 10).dot(5.5, 6.6, 1.5, face[1]).shape("M3.5 10.5 C3.5 8.9 7.5 8.9 7.5 10.5 Z", *face)
    return pen.cut("M9 6.5 H13 M9 8.5 H13 M9 10.5 H12")


def user_list(pen, s):
    pen.box(2, 1, 12, 14).cut("M7 4.5 H12 M7 7.5 H12 M7 10.5 H12")
    for y in (4, 7, 10):
        pen.bar(4, y, 2, 1, s.detail_line)
    return pen


def palette(pen, s):
    pen.shape(PALETTE)
    for paint, (x, y) in zip(s.paints, ((5, 6), (8.4, 4.4), (11.6, 6), (4.6, 9.6))):
        pen.dot(x, y, 1.2, paint)
    return pen


def sliders(pen, s):
    pen.lines("M1 3.5 H15 M1 8.5 H15 M1 13.5 H15")
    for x, y in ((9, 2), (4, 7), (10, 12)):
        pen.box(x, y, 3, 4, 1.0, s.accent, s.accent_line)
    return pen


def menu_icons(s):
    def pen():
        return Pen(s)

    accent = (s.accent, s.accent_line)
    icons = {
        "my-details": user_card(pen(), s),
        "password": pen().lines("M8 8.5 H15 M11.5 9 V11.5 M14.5 9 V12").disc(5, 8.5, 3.5, *accent)
        .dot(5, 8.5, 1.2, s.rim),
        "lock": pen().lines("M5 7.5 V5 A3 3 0 0 1 11 5 V7.5", None, 1.6).box(3, 7, 10, 8, 2.0, *accent)
        .bar(7, 10, 2, 3, s.on_accent),
        "change-skin": palette(pen(), s),
        "preferences": sliders(pen(), s),
        "create-user": pen().person(-1).badge("plus", 12, 8),
        "delete-user": pen().person(-1).badge("minus", 12, 8),
        "change-user": pen().person(-1).badge("swap", 12, 7),
        "user-lists": user_list(pen(), s),
        "visible-list": pen().shape(EYE).disc(8, 8, 2.2, s.detail, s.detail_line),
        "invisible-list": pen().shape(EYE).lines("M2.5 13.5 L13.5 2.5", s.warn_line, 1.8),
        "ignore-list": pen().shape(BUBBLE).lines("M5.8 4.3 L10.2 8.7 M10.2 4.3 L5.8 8.7", s.detail_warn, 1.7),
        "tempt": pen().shape(APPLE, s.warn, s.warn_line).lines("M8 5 C8 3.4 8.8 2.2 10.5 1.5", None, 1.4),
        "exit": pen().box(1, 1, 8, 14).lines("M6 8 H14 M11.5 5 L14.5 8 L11.5 11", s.accent_line, 1.8),
        "about": pen().disc(8, 8, 6.5, *accent).bar(7, 4, 2, 2, s.on_accent).bar(7, 7, 2, 5, s.on_accent),
        "history": pen().disc(8, 8, 6.5).lines("M8.5 4 V8.5 H12", s.detail_line, 1),
        "user-details": user_card(pen(), s),
        "move-group": pen().folder().lines("M5 9 H10.5 M8.5 6.8 L10.8 9 L8.5 11.2", s.detail_line, 1.6),
        "group": pen().folder().cut("M1.5 7.5 H14.5"),
        "user-rename": pen().person(-1).badge("pencil", 12, 10),
        "user-delete": pen().person(-1).badge("cross", 12.5, 8),
        "group-add": pen().folder().badge("plus", 12, 12),
        "group-rename": pen().folder().badge("pencil", 11.5, 11),
        "group-delete": pen().folder().badge("cross", 12.5, 12.5),
        "move-up": pen().shape("M8 2.5 L13.5 8.5 H10.5 V13.5 H5.5 V8.5 H2.5 Z", *accent),
        "move-down": pen().shape("M8 13.5 L13.5 7.5 H10.5 V2.5 H5.5 V7.5 H2.5 Z", *accent),
    }
    return {f"menu-{name}": icon.svg() for name, icon in icons.items()}


def presence(pen, fill, line):
    """The ground of a presence icon: a disc in the light skin, a cut square in the dark one."""
    return pen.shape(CUT_SQUARE if pen.s.solid else ring(8, 8, 6.5), fill, line)


def offline(pen, s):
    ground = CUT_SQUARE if s.solid else ring(8, 8, 6.5)
    pen.parts.append(path(ground, s.away_ground, s.away, 1.6 if s.solid else 1))
    return pen.lines("M6 6 L10 10 M10 6 L6 10", s.away, 1.5)


def invisible(pen, s):
    ground, dashes = (CUT_SQUARE, "3 2") if s.solid else (ring(8, 8, 6.3), "2.6 2.1")
    colour = "#9aa5b5" if s.solid else s.line
    pen.parts.append(path(ground, "none", colour, 1.4, stroke_dasharray=dashes))
    return pen.dot(8, 8, 2, colour)


def address_book(pen, s):
    face = (s.detail, s.detail if s.solid else s.detail_line)
    pen.box(2, 1, 12, 14).disc(8, 6, 1.8, *face).shape("M4.8 11.5 C4.8 9 11.2 9 11.2 11.5 Z", *face)
    for y in (4, 8, 11):
        pen.bar(1, y, 2, 1)
    return pen


def status_icons(s):
    def pen():
        return Pen(s)

    sun = (s.sun, s.sun_line)
    icons = {
        "online": presence(pen(), s.green, s.green_line).lines("M5 8.2 L7.2 10.4 L11.2 6", s.on_green, 1.8),
        "offline": offline(pen(), s),
        "away": presence(pen(), *sun).lines("M8 4.5 V8.3 L10.8 10", s.on_sun, 1.5),
        "not-available": pen().shape(MOON, *sun),
        "invisible": invisible(pen(), s),
        "do-not-disturb": presence(pen(), s.warn, s.warn_line).bar(4, 7, 8, 2, s.on_warn),
        "authorise": pen().shape(SHIELD, s.green, s.green_line).lines("M5.2 7.8 L7.3 9.9 L10.8 6", s.on_green, 1.7),
        "sysmessage": pen().shape("M8 1.8 L14.8 14 H1.2 Z", *sun).bar(7, 6, 2, 4, s.on_sun).bar(7, 11, 2, 2, s.on_sun),
        "message": pen().box(1, 3, 14, 10).lines("M2 4 L8 9 L14 4", s.inner, 1.2),
        "chat-request": pen().shape("M5.5 5.5 H14.5 V11.5 H13.5 V14 L10.5 11.5 H5.5 Z", s.accent, s.accent_line)
        .shape("M1.5 1.5 H10.5 V7.5 H5 L2.5 10 V7.5 H1.5 Z").cut("M3.5 3.5 H8.5 M3.5 5.5 H7"),
        "file-request": pen().shape("M2.5 1.5 H8 L11.5 5 V14.5 H2.5 Z").cut("M8 1.5 V5 H11.5")
        .lines(ARROW_IN, s.rim, 4).lines(ARROW_IN, s.accent_line, 1.8),
        "url": pen().disc(8, 8, 6.5, s.blue, s.blue_line).lines(MERIDIANS, s.on_blue, 1),
        "birthday": pen().box(1, 8, 14, 7, 1.5).cut(ICING).bar(7, 4, 2, 4, s.warn_line).dot(8, 2.4, 1.4, s.sun_line),
        "contacts": address_book(pen(), s),
    }
    return {f"status-{name}": icon.svg() for name, icon in icons.items()}


def heading_icons(light):
    colour = BIRCH["deep"] if light else LANTERN["amber"]
    if light:
        line = {"stroke_linecap": "round", "stroke_linejoin": "round"}
        return {"heading-hide": svg(12, 12, path("M2.5 4.5 L6 8 L9.5 4.5", "none", colour, 1.8, **line)),
                "heading-show": svg(12, 12, path("M4.5 2.5 L8 6 L4.5 9.5", "none", colour, 1.8, **line))}
    return {"heading-hide": svg(12, 12, path("M1 4 H11 L6 9 Z", colour)),
            "heading-show": svg(12, 12, path("M4 1 V11 L9 6 Z", colour))}


def mood_icons(light):
    """Faces for 16 pixels: two eyes of two pixels and one stroke, whatever the mood."""
    ink = "#4a2c0a" if light else "#2b1703"
    yellow, red, blue = ("#ffd23c", "#f97b5e", "#9dc1ee") if light else ("#ffc861", "#ff7d62", "#86b6f2")
    rims = {yellow: "#a87400", red: "#a3261f", blue: "#3a639f"}

    def face(colour, *parts):
        if light:
            ground = circle(8, 8, 7, colour, rims[colour], 1)
        else:
            ground = rect(1, 1, 14, 14, darker(colour, 1.14, -0.015), 5) + rect(1, 1, 14, 13, colour, 5)
        return svg(16, 16, ground, *parts)

    def line(d, width=1.4, colour=ink):
        return path(d, "none", colour, width, stroke_linecap="round", stroke_linejoin="round")

    def eyes(y=5, h=3):
        return rect(5, y, 2, h, ink, 1) + rect(9, y, 2, h, ink, 1)

    smile, frown = line("M4.8 9.8 Q8 13.4 11.2 9.8"), line("M5 12 Q8 8.9 11 12")
    mouth = path("M4.5 9 H11.5 Q11.2 13 8 13 Q4.8 13 4.5 9 Z", "#7a1f1a")
    pictures = {
        "happy": face(yellow, eyes(), smile),
        "sad": face(yellow, eyes(6, 2), line("M3.8 5.2 L6 4 M12.2 5.2 L10 4", 1.1), frown),
        "angry": face(red, line("M4 4.2 L7 6 M12 4.2 L9 6", 1.3), eyes(6, 2), frown),
        "excited": face(yellow, line("M4.3 6.8 Q5.6 4 6.9 6.8 M9.1 6.8 Q10.4 4 11.7 6.8", 1.3), mouth,
                        path("M5.2 9.6 H10.8 L10.4 10.8 H5.6 Z", "#ffffff")),
        "chatty": face(yellow, rect(4, 6, 2, 3, ink, 1), rect(8, 6, 2, 3, ink, 1),
                       path(ring(6.8, 11.4, 2.2, 1.6), "#7a1f1a"),
                       path("M9.5 0.5 H15.5 V5.5 H13.5 L11.5 7.5 V5.5 H9.5 Z", "#ffffff" if light else "#dfe4ec",
                            "#1d5fa8" if light else "#171b23", 1, stroke_linejoin="round")),
        "depressed": face(blue, line("M4.3 5.8 Q5.6 7.6 6.9 5.8 M9.1 5.8 Q10.4 7.6 11.7 5.8", 1.2), frown,
                          path("M4.6 8.4 Q3.4 10 3.6 10.8 Q4.6 12 5.6 10.8 Q5.8 10 4.6 8.4 Z", "#ffffff")),
        "chillin": face(yellow, path("M2.5 5 H13.5 V6.5 Q13 8.6 11 8.6 Q9 8.6 8.6 6.4 H7.4 "
                                     "Q7 8.6 5 8.6 Q3 8.6 2.5 6.5 Z", "#1c2430"), line("M5.4 11 Q8 13 10.8 10.6")),
        "bored": face(yellow, rect(4, 5, 3, 1, ink), rect(9, 5, 3, 1, ink), rect(5, 6, 2, 2, ink),
                      rect(10, 6, 2, 2, ink), line("M5.5 11.8 Q8 10.4 11 10.8")),
        "indifferent": face(yellow, eyes(), rect(5, 10, 6, 1.5, ink, 0.7)),
        "silly": face(yellow, rect(5, 5, 2, 3, ink, 1), line("M9 6.8 Q10.4 5.2 11.8 6.8", 1.3),
                      line("M4.8 9.8 H11.2", 1.3),
                      path("M7 10 H11 V11.6 Q11 13.8 9 13.8 Q7 13.8 7 11.6 Z", "#f2566a", "#8e1f2c", 0.6)),
    }
    return {f"mood-{name}": picture for name, picture in pictures.items()}
