"""Family "quorl": flat geometric silhouettes in two tones, lit from the left."""

from .svg import KNIGHT_NUDGE, document, half_disc, shape, slab, turned

RIM = 7.0
LIGHT = {"w": "#ffffff", "b": "#4a5266"}
SHADE = {"w": "#ccd3df", "b": "#343b4c"}
MARK = {"w": "#363d4c", "b": "#c3cbda"}
EDGE = {"w": "#363d4c", "b": "#161920"}


def _on_axis(outlines, half_foot=28.5):
    """Bodies and shaded right halves of a symmetric piece standing on the common foot."""
    bar = slab(50 - half_foot, 50 + half_foot, 79.5, 88.5, 1.5)
    shaded_bar = slab(50, 50 + half_foot, 79.5, 88.5, 1.5)
    return [turned(half) for half in outlines] + [bar], [half + "Z" for half in outlines] + [shaded_bar]


def king():
    return _on_axis([
        "M50 10.5L54.5 10.5L54.5 16.5L60.5 16.5L60.5 24L54.5 24L54.5 35L50 35",
        "M50 40C55 36 61 34.5 68 34.5C80 34.5 86 42 83.5 51L72 76L50 76",
    ])


def queen():
    return _on_axis([half_disc(17, 6), "M50 27L60 49L69 27L71.5 50L86 34L73 76L50 76"])


def rook():
    return _on_axis(["M50 21L56 21L56 29L64 29L64 21L74 21L74 41L66 48L70 76L50 76"])


def bishop():
    bodies, shaded = _on_axis([half_disc(18, 5), "M50 24C58 29 71 39 70 52C69 59 64 62 60 65L70 76L50 76"])
    return bodies, shaded, [("M61.3 37.3L55 46.3", 4.2)]


def knight():
    head = (
        "M37 11.5L47 21.5L58 23C75 31 80 52 77 76L25 76C26 65 41 62 46.5 51.5C43 56 38 57.5 33 57.5"
        "L27 67L21 67.5L13.5 61L15 53L27 32L35.5 24Z"
    )
    mane = "M47 21.5L58 23C75 31 80 52 77 76L57 76C64 58 61 37 47 21.5Z"
    bodies = [head, slab(21.5, 78.5, 79.5, 88.5, 1.5)]
    return bodies, [mane, slab(57, 78.5, 79.5, 88.5, 1.5)], [("M34.5 38.5L38.5 36.5", 5), ("M20.5 58.5L20.6 58.4", 4)]


def pawn():
    return _on_axis([half_disc(44, 13.5), "M50 53L57 53L68 76L50 76"], 24.5)


PIECES = {"k": king, "q": queen, "r": rook, "b": bishop, "n": knight, "p": pawn}


def draw(side, kind):
    """The SVG text of one piece: a dark rim below, the flat body, then its shaded half."""
    bodies, shaded, *cuts = PIECES[kind]()
    marks = [shape(path, EDGE[side], EDGE[side], RIM) for path in bodies]
    marks += [shape(path, LIGHT[side]) for path in bodies]
    marks += [shape(path, SHADE[side]) for path in shaded]
    marks += [shape(path, "none", MARK[side], width) for path, width in (cuts[0] if cuts else [])]
    return document(marks, nudge=KNIGHT_NUDGE if kind == "n" else 0)
