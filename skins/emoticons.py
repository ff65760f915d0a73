"""The 31 emoticons as layers on a field of 40 by 40, in drawing order.

A path is made of M x y, L x y, Q and C curves, E x y rx ry (an ellipse) and Z. Faces begin with DISC or
LOW_DISC, which each skin shapes in its own way.
"""

INK = "#3b2410"
DISC = "E20 20 18 18"
LOW_DISC = "E20 22 16 16"


def filled(path, fill):
    return (path, fill, None, 0)


def stroked(path, line, width):
    return (path, None, line, width)


def outlined(path, fill, line, width=1.6):
    return (path, fill, line, width)


def disc(fill="#ffd23c", line="#9a6a00"):
    return outlined(DISC, fill, line)


def low_disc(fill="#ffd23c", line="#9a6a00"):
    return outlined(LOW_DISC, fill, line)


DOTS = filled("E14 16 3 4 E26 16 3 4", INK)
HAPPY_EYES = stroked("M10 18 Q14 11 18 18 M22 18 Q26 11 30 18", INK, 2.8)
SHUT_EYES = stroked("M10 15 Q14 20 18 15 M22 15 Q26 20 30 15", INK, 2.8)
WIDE_EYES = outlined("E13 15 5 6 E27 15 5 6", "#ffffff", INK)
PUPILS = filled("E14 15 2 3 E26 15 2 3", INK)
HALF_EYES = outlined("M9 15 L18 15 Q18 20 14 20 Q9 20 9 15 Z"
                     " M22 15 L31 15 Q31 20 26 20 Q22 20 22 15 Z", "#ffffff", INK)
ASIDE_PUPILS = filled("E16 17 2 2 E29 17 2 2", INK)
LOW_PUPILS = filled("E14 17 2 2 E26 17 2 2", INK)
ANGRY_BROWS = stroked("M9 10 L18 14 M31 10 L22 14", INK, 2.8)
SAD_BROWS = stroked("M8 12 Q12 11 16 8 M32 12 Q28 11 24 8", INK, 2.4)
HIGH_BROWS = stroked("M10 10 Q13 6 17 8 M30 10 Q27 6 23 8", INK, 2.2)
SMILE = stroked("M10 24 Q20 36 30 24", INK, 2.8)
FROWN = stroked("M12 31 Q20 22 28 31", INK, 2.8)
FLAT = stroked("M13 28 L27 28", INK, 2.8)
GRIN = outlined("M9 22 Q20 25 31 22 Q30 34 20 34 Q10 34 9 22 Z", "#7a1f1a", INK)
TEETH = filled("M10 24 Q20 26 30 24 L28 27 Q20 29 12 27 Z", "#ffffff")
BLUSH = filled("E9 23 4 3 E31 23 4 3", "#ff5d5dd0")

EMOTICONS = {
    "Angel": (
        low_disc(),
        SHUT_EYES,
        SMILE,
        stroked("E20 5 11 3", "#b98a00", 3.8),
        stroked("E20 5 11 3", "#fff3a0", 2),
    ),
    "Angry": (
        disc("#f4583a", "#8e0f20"),
        DOTS,
        ANGRY_BROWS,
        FROWN,
    ),
    "Bored": (
        disc(),
        HALF_EYES,
        ASIDE_PUPILS,
        stroked("M14 29 Q19 26 26 27", INK, 2.8),
    ),
    "Chatty": (
        disc(),
        DOTS,
        outlined("M12 24 L28 24 Q27 33 20 33 Q13 33 12 24 Z", "#7a1f1a", INK),
        outlined("M24 2 L38 2 L38 12 L32 12 L27 16 L28 12 L24 12 Z", "#ffffff", "#1d5fa8"),
        stroked("M27 6 L35 6 M27 9 L33 9", "#1d5fa8", 1.6),
    ),
    "Chillin": (
        disc(),
        SHUT_EYES,
        SMILE,
        stroked("M4 18 C4 -2 36 -2 36 18", "#3d6aa8", 3.6),
        outlined("E5 20 4 6 E35 20 4 6", "#4c78b8", "#2c3e56"),
    ),
    "Cool": (
        disc(),
        SMILE,
        filled("M4 12 L36 12 L35 17 Q33 21 28 21 Q22 21 21 15 L19 15 Q18 21 12 21 Q7 21 5 17 Z", "#15171c"),
        stroked("M9 18 L12 14 M24 18 L28 14", "#b8c8dc", 1.6),
    ),
    "Depressed": (
        disc("#86aee2", "#2b4e86"),
        SHUT_EYES,
        SAD_BROWS,
        FROWN,
        outlined("M10 20 Q7 25 8 27 Q10 29 12 27 Q14 25 10 20 Z", "#ddf2ff", "#1d5fa8", 1.2),
    ),
    "Pylox": (
        outlined("M5 19 Q1 8 6 2 Q8 8 17 9 Z M35 19 Q39 8 34 2 Q32 8 23 9 Z", "#f0553c", "#8e0f20"),
        low_disc("#b072e8", "#4b2180"),
        outlined("M9 16 L18 19 Q17 24 14 24 Q10 24 9 16 Z"
                 " M31 16 L22 19 Q23 24 26 24 Q30 24 31 16 Z", "#fff27a", "#2a0f4c"),
        filled("E15 21 2 2 E25 21 2 2", "#2a0f4c"),
        stroked("M11 26 Q20 37 31 25", "#2a0f4c", 2.6),
        outlined("M23 30 L25 35 L28 28 Z", "#ffffff", "#2a0f4c", 0.8),
    ),
    "Embarrased": (
        disc("#ffc06a", "#a8521a"),
        BLUSH,
        DOTS,
        SAD_BROWS,
        stroked("M15 28 Q18 26 20 28 Q22 30 25 28", INK, 2.6),
    ),
    "Excited": (
        disc(),
        HAPPY_EYES,
        GRIN,
        TEETH,
    ),
    "Gasp": (
        disc("#ffefa0", "#9a6a00"),
        WIDE_EYES,
        PUPILS,
        outlined("E20 29 5 7", "#7a1f1a", INK),
        filled("E20 33 3 2", "#ff7f8e"),
    ),
    "Happy": (
        disc(),
        DOTS,
        SMILE,
    ),
    "Heart": (
        outlined("M20 37 C-4 20 1 3 11 3 C16 3 19 6 20 9 C21 6 24 3 29 3"
                 " C39 3 44 20 20 37 Z", "#e8293b", "#8e0f20"),
        stroked("M7 15 Q7 8 12 8", "#ffb4ba", 2.6),
    ),
    "Heart Broken": (
        outlined("M17 35 C-6 19 -1 4 9 4 C13 4 16 6 18 9 L14 16 L20 21 L15 27 Z", "#e8293b", "#8e0f20"),
        outlined("M22 36 L21 28 L26 21 L20 15 L23 8 C24 5 27 4 31 4"
                 " C41 4 45 19 22 36 Z", "#e8293b", "#8e0f20"),
    ),
    "Indifferent": (
        disc(),
        DOTS,
        FLAT,
    ),
    "Nyah": (
        disc(),
        DOTS,
        SMILE,
        outlined("M15 29 L25 29 L25 33 Q24 38 20 38 Q16 38 15 33 Z", "#ff7f8e", "#8e0f20"),
    ),
    "Nyeh": (
        disc(),
        filled("E26 16 3 4", INK),
        stroked("M10 13 L17 16 L10 19", INK, 2.6),
        stroked("M11 25 L29 25", INK, 2.8),
        outlined("M12 26 L20 26 L20 33 Q20 37 16 37 Q12 37 12 33 Z", "#ff7f8e", "#8e0f20"),
    ),
    "Question": (
        stroked("M11 13 C11 2 29 2 29 12 C29 19 20 18 20 25", "#1d5fa8", 8),
        filled("E20 34 4 4", "#1d5fa8"),
        stroked("M11 13 C11 2 29 2 29 12 C29 19 20 18 20 25", "#55b4f5", 4.8),
        filled("E20 34 3 3", "#55b4f5"),
    ),
    "Sad": (
        disc(),
        DOTS,
        SAD_BROWS,
        FROWN,
    ),
    "Silly": (
        disc(),
        outlined("E13 15 6 7 E28 16 4 4", "#ffffff", INK),
        filled("E15 17 2 2 E26 15 2 2", INK),
        outlined("M10 25 Q20 27 30 24 Q28 34 21 34 Q12 34 10 25 Z", "#7a1f1a", INK),
        filled("M16 26 L24 26 L23 30 L16 30 Z", "#ffffff"),
    ),
    "Suprised": (
        disc(),
        DOTS,
        HIGH_BROWS,
        outlined("E20 28 4 4", "#7a1f1a", INK),
    ),
    "Tongue Tied": (
        disc(),
        DOTS,
        HIGH_BROWS,
        stroked("M10 29 L14 25 L18 30 L22 25 L26 30 L30 26", "#8e0f20", 4.8),
        stroked("M10 29 L14 25 L18 30 L22 25 L26 30 L30 26", "#ff7f8e", 2.6),
    ),
    "Unimpressed": (
        disc(),
        HALF_EYES,
        LOW_PUPILS,
        stroked("M9 11 L18 11 M22 10 Q26 6 31 9", INK, 2.4),
        FLAT,
    ),
    "Wink": (
        disc(),
        filled("E14 16 3 4", INK),
        stroked("M22 17 Q26 13 30 16", INK, 2.8),
        SMILE,
    ),
    "Worried": (
        disc(),
        DOTS,
        SAD_BROWS,
        stroked("M11 29 Q14 25 17 28 Q20 31 23 28 Q26 25 29 29", INK, 2.6),
        outlined("M35 5 Q30 12 32 15 Q35 18 38 15 Q39 12 35 5 Z", "#55b4f5", "#1d5fa8"),
    ),
    "Yum": (
        disc(),
        HAPPY_EYES,
        SMILE,
        outlined("M22 29 L28 24 Q35 24 33 30 Q31 35 25 33 Z", "#ff7f8e", "#8e0f20"),
    ),
    "Kiss": (
        outlined("M3 20 C9 11 15 7 20 12 C25 7 31 11 37 20 C31 32 25 34 20 34"
                 " C15 34 9 32 3 20 Z", "#e8293b", "#8e0f20"),
        filled("M7 20 Q14 17 20 20 Q26 17 33 20 Q26 25 20 24 Q14 25 7 20 Z", "#5a0715"),
        stroked("M14 29 Q20 31 26 29", "#ff9aa6", 2.2),
    ),
    "Cat": (
        outlined("M5 22 L5 3 L16 10 L24 10 L35 3 L35 22 Q35 37 20 37 Q5 37 5 22 Z", "#f2a03d", "#7e450c"),
        filled("M8 12 L8 8 L12 10 Z M32 12 L32 8 L28 10 Z", "#ff7f8e"),
        filled("E13 20 3 4 E27 20 3 4", "#2f6b33"),
        outlined("M18 25 L22 25 L20 28 Z", "#ff7f8e", "#8e0f20", 1),
        stroked("M20 28 Q19 31 15 30 M20 28 Q21 31 25 30", INK, 1.6),
        stroked("M11 26 L1 24 M11 28 L2 30 M29 26 L39 24 M29 28 L38 30", "#8a7a6a", 1.2),
    ),
    "Dog": (
        outlined("M9 12 Q10 4 20 4 Q30 4 31 12 L32 26 Q31 37 20 37 Q9 37 8 26 Z", "#d9a066", "#6b3f16"),
        outlined("M11 6 Q1 5 2 18 Q2 25 6 25 Q11 24 12 10 Z"
                 " M29 6 Q39 5 38 18 Q38 25 34 25 Q29 24 28 10 Z", "#8a5526", "#4a2a0c"),
        filled("E20 28 8 7", "#f7e3c4"),
        filled("E15 17 2 3 E25 17 2 3 E20 24 4 3", INK),
        stroked("M20 27 L20 30 M16 30 Q18 32 20 30 Q22 32 24 30", INK, 1.6),
        filled("M18 32 L22 32 L22 34 Q20 37 18 34 Z", "#ff7f8e"),
    ),
    "Coffee": (
        outlined("E18 34 16 4", "#c9d3df", "#5b6b7e"),
        stroked("M28 19 Q38 17 37 23 Q36 28 27 28", "#5b6b7e", 4.4),
        stroked("M28 19 Q38 17 37 23 Q36 28 27 28", "#ffffff", 2),
        outlined("M6 16 L30 16 Q30 34 18 34 Q6 34 6 16 Z", "#ffffff", "#5b6b7e"),
        outlined("E18 16 12 4", "#6b3a18", "#5b6b7e"),
        stroked("M13 11 Q10 8 13 6 Q16 4 14 1 M22 11 Q19 8 22 6 Q25 4 22 1", "#a0acb8", 2),
    ),
    "Gift": (
        outlined("M20 11 Q6 11 8 5 Q13 0 20 11 Q27 0 32 5 Q34 11 20 11 Z", "#ffd84a", "#9a6a00"),
        outlined("M5 18 L35 18 L35 37 L5 37 Z", "#3e8ede", "#173f70"),
        outlined("M3 11 L37 11 L37 18 L3 18 Z", "#5aa8f2", "#173f70"),
        outlined("M17 11 L23 11 L23 37 L17 37 Z", "#ffd84a", "#9a6a00", 1.2),
    ),
}
