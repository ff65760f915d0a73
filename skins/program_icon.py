"""The program's icon: the imp of the emoticons as a speech bubble, on a field of 128 by 128, and once more on one
of 16, where lines are whole pixels."""

from shapes import *

FACE, RIM, INK, HORN, HORN_RIM, EYE = "#b07be8", "#4b2180", "#2a0f4c", "#f0553d", "#8e0f20", "#ffef8a"

BUBBLE = ("M64 24 C97 24 120 44 120 70 C120 96 97 116 64 116 C58 116 52 115.4 46.5 114 "
          "C38 120 27 123 14 122 C20 117 23.5 111 24 104 C14 96 8 84 8 70 C8 44 31 24 64 24 Z")
HORNS = "M21 50 C9 34 10 15 23 5 C26 17 38 25 58 27 Z M107 50 C119 34 118 15 105 5 C102 17 90 25 70 27 Z"
EYES = "M28 56 L57 65 C55 81 49 86 42 85 C33 84 28 72 28 56 Z M100 56 L71 65 C73 81 79 86 86 85 C95 84 100 72 100 56 Z"
SMILE = "M34 92 C46 108 82 109 97 89"


def large():
    grounds = [gradient("face", ((0, lighter(FACE, 1.16)), (1, darker(FACE, 1.14)))),
               gradient("horn", ((0, lighter(HORN, 1.12)), (1, darker(HORN, 1.14)))),
               gradient("eye", ((0, lighter(EYE, 1.08)), (1, darker(EYE, 1.1))))]
    join = {"stroke_linejoin": "round", "stroke_linecap": "round"}
    return svg(128, 128, "<defs>" + "".join(grounds) + "</defs>",
               path(HORNS, "url(#horn)", HORN_RIM, 5, **join),
               path(BUBBLE, "url(#face)", RIM, 6, **join),
               path("M30 42 C42 31 86 31 98 42", "none", "#ffffff", 5, stroke_opacity=0.35, **join),
               path(EYES, "url(#eye)", INK, 5, **join),
               circle(46, 73, 6.5, INK), circle(82, 73, 6.5, INK),
               path("M76 103 L82 119 L91 96 Z", "#ffffff", INK, 3, **join),
               path(SMILE, "none", INK, 7.5, **join))


def small():
    join = {"stroke_linejoin": "round", "stroke_linecap": "round"}
    return svg(16, 16,
               path("M2 6 V0.8 Q4 2.6 6.5 3 Z M14 6 V0.8 Q12 2.6 9.5 3 Z", HORN, HORN_RIM, 1, **join),
               path("M8 2.5 C12.6 2.5 15.5 4.8 15.5 8 C15.5 11.2 12.6 13.5 8 13.5 C7.2 13.5 6.5 13.4 5.8 13.3 "
                    "C4.6 14.6 3.2 15.4 1.5 15.5 C2.4 14.5 2.6 13.4 2.5 12.2 C1.2 11.1 0.5 9.7 0.5 8 "
                    "C0.5 4.8 3.4 2.5 8 2.5 Z", FACE, RIM, 1, **join),
               path("M3 5 L7 7 V9 H4 Q3 8 3 5 Z M13 5 L9 7 V9 H12 Q13 8 13 5 Z", EYE),
               rect(5, 7, 2, 2, INK), rect(9, 7, 2, 2, INK),
               path("M4.5 10.5 Q5.5 11.6 8 11.6 Q10.5 11.6 11.5 10.5", "none", INK, 1, **join))


def program_icon():
    return {"pylox-chat": large(), "pylox-chat-16": small()}
