"""Family "bookup": the look of printed diagrams, outlines with a few inner lines."""

from .svg import KNIGHT_NUDGE, disc, document, mirrored, shape, slab, turned

OUTLINE = 3.8
INNER = 3.4
PAPER = {"w": "#fffdf5", "b": "#2b2826"}
EDGE = {"w": "#1c1917", "b": "#0f0d0c"}
DETAIL = {"w": "#1c1917", "b": "#f1ead9"}
# The outline's lower half is added to this, so that all pieces stand at y = 92.
FLOOR = 90.1


def _foot(half):
    return slab(50 - half, 50 + half, 80, FLOOR, 3.5)


def king():
    body = [
        turned("M50 52C53 39 61 31 71 31C84 31 91 41 88 51C85 60 77 64 74 73L50 70"),
        turned("M50 22C56 27 59 33 58 39C57 46 53 52 50 58"),
        turned("M50 66C59 66 67 68 74 72L73 80L50 80"),
        _foot(29),
    ]
    cross = ["M50 8.9L50 22", "M43.5 13.8L56.5 13.8"]
    lobe = "M58 58C60 46 65 39.5 71 39.5C78 39.5 82 45 79 50C77 54 73 57 70 61"
    inner = ["M29.5 70.8C36 67.5 43 66 50 66C57 66 64 67.5 70.5 70.8", "M30 80L70 80", lobe, mirrored(lobe)]
    return body, cross, inner


def queen():
    body = [
        "M27 73L15 36L30 50L31 25L42 47L50 20L58 47L69 25L70 50L85 36L73 73Z",
        turned("M50 66C59 66 67 68 74 72L73 80L50 80"),
        _foot(29),
        disc(13.2, 31.5, 5), disc(30.5, 20, 5), disc(50, 14.3, 5.4), disc(69.5, 20, 5), disc(86.8, 31.5, 5),
    ]
    inner = [
        "M29.5 70.8C36 67.5 43 66 50 66C57 66 64 67.5 70.5 70.8", "M26 60.5C41 54.5 59 54.5 74 60.5", "M30 80L70 80",
    ]
    return body, [], inner


def rook():
    body = [
        turned("M50 40L66 40L68 72L50 72"),
        turned("M50 18L57 18L57 25L64 25L64 18L75 18L75 33L66 41L50 41"),
        turned("M50 71L68 71L73 80L50 80"),
        _foot(29),
    ]
    inner = ["M36.5 41L63.5 41", "M35 71L65 71", "M30 80L70 80"]
    return body, [], inner


def bishop():
    body = [
        disc(50, 16, 5.4),
        turned("M50 22C61 27 72 39 70 51C69 57 66 60 63 64L50 64"),
        turned("M50 63L63 63C64 71 69 77 74 80L50 80"),
        _foot(29),
    ]
    inner = ["M39.5 63.5L60.5 63.5", "M50 34L50 52", "M42 41.5L58 41.5", "M30 80L70 80"]
    return body, [], inner


def knight():
    head = (
        "M25 80C25 70 43 66 46 54C42 59 37 60 32.5 61C30 66 27 70 21.5 70C15.5 70 11.5 66 11.5 60"
        "C11.5 54 17.5 50 19.5 43"
        "C21.5 36 26 30 32 25.5L31.5 11C38 13 42.5 16.5 45.5 20.5C47.5 16 50 13.5 54 11.5C55.5 15 56 17.5 56 20.5"
        "C75 25 84 44 79 80Z"
    )
    inner = ["M57 30C68 37 73 52 71 71", "M46 54C47.5 51 48 48 47.5 44", "M18 60.5L19.3 59.5", "M25 80L74 80"]
    return [head, _foot(32)], [], inner, ["M28.5 41C30 36.5 34 35 38 35.5C37.5 39.5 34 42.5 28.5 41Z"]


def pawn():
    body = [
        turned("M50 48C58 50 61 56 61 62C61 70 68 74 72 80L50 80"),
        disc(50, 38, 12),
        _foot(25),
    ]
    return body, [], ["M33 80L67 80"]


PIECES = {"k": king, "q": queen, "r": rook, "b": bishop, "n": knight, "p": pawn}


def draw(side, kind):
    """The SVG text of one piece."""
    body, solid, inner, *filled = PIECES[kind]()
    marks = [shape(path, PAPER[side], EDGE[side], OUTLINE) for path in body]
    marks += [shape(path, "none", EDGE[side], 5) for path in solid]
    marks += [shape(path, "none", DETAIL[side], INNER) for path in inner]
    marks += [shape(path, DETAIL[side]) for path in (filled[0] if filled else [])]
    return document(marks, nudge=KNIGHT_NUDGE if kind == "n" else 0)
