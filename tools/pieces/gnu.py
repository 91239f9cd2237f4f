"""Family "gnu": lathe-turned pieces of ivory and ebony with rounded shading and highlights."""

from .svg import disc, document, half_disc, shape, turned

RIM = 6.4
EDGE = {"w": "#4a3216", "b": "#0b0807"}
# Colours across a turned part from its left edge to its right edge.
TURNED = {
    "w": ((0, "#d9b878"), (0.16, "#f6e3b4"), (0.36, "#fffdf0"), (0.62, "#f3dca6"), (0.85, "#cfa862"), (1, "#b58a48")),
    "b": ((0, "#2c201b"), (0.14, "#4d3d35"), (0.32, "#95847a"), (0.5, "#463730"), (0.8, "#211814"), (1, "#372a24")),
}
CARVED = {
    "w": ((0, "#fffdf0"), (0.45, "#f6e3b4"), (1, "#c0954f")),
    "b": ((0, "#85746a"), (0.4, "#463730"), (1, "#1d1511")),
}
GROOVE = {"w": "#7d5a28", "b": "#0f0a08"}


def _stops(table):
    return "".join(f'<stop offset="{offset:g}" stop-color="{colour}"/>' for offset, colour in table)


def _defs(side):
    """The three paints of a side: turned wood, a ball lit from the upper left, and carved wood."""
    ball = tuple((offset, colour) for offset, (_, colour) in zip((0, 0.45, 1), CARVED[side]))
    return (
        f'<linearGradient id="t" x1="0" y1="0" x2="1" y2="0">{_stops(TURNED[side])}</linearGradient>'
        f'<radialGradient id="s" cx="0.38" cy="0.34" r="0.68">{_stops(ball)}</radialGradient>'
        f'<linearGradient id="c" x1="0.1" y1="0" x2="0.95" y2="0.8">{_stops(CARVED[side])}</linearGradient>'
    )


def _ring(half_width, top, bottom):
    """A bar of the lathe with fully rounded ends."""
    r = (bottom - top) / 2
    x = 50 + half_width
    return turned(
        f"M50 {top:g}L{x - r:g} {top:g}C{x - 0.4 * r:g} {top:g} {x:g} {top + 0.45 * r:g} {x:g} {top + r:g}"
        f"C{x:g} {bottom - 0.45 * r:g} {x - 0.4 * r:g} {bottom:g} {x - r:g} {bottom:g}L50 {bottom:g}"
    )


def _pedestal(half_foot):
    """The foot and the torus over it, common to all pieces."""
    return [(_ring(half_foot, 80, 88.8), "t"), (_ring(half_foot - 6, 73, 80), "t")]


def _column(top, waist, bottom=73, flare=19):
    """A concave stem from a waist down to the torus."""
    x = 50 + waist
    return turned(f"M50 {top}L{x} {top}C{x} {top + 12} {x + 3} {bottom - 8} {50 + flare} {bottom}L50 {bottom}")


def king():
    parts = _pedestal(28) + [(_column(48, 10), "t"), (_ring(16, 43, 49.5), "t")]
    parts += [(turned("M50 24C60 24 66 25 68 27L61 43L50 43"), "t")]
    parts += [(turned("M50 10.5L54 10.5L53 15L58.5 14L58.5 21L53 20L54 26L50 26"), "t")]
    return parts, []


def queen():
    parts = _pedestal(28) + [(_column(50, 9.5), "t"), (_ring(15, 45, 51), "t")]
    parts += [(turned("M50 25C53 25 54 27 55 28C58 25 61 24 63 26C66 23 69 22 71 23L60 45L50 45"), "t")]
    parts += [(disc(50, 18, 6), "s")]
    return parts, []


def rook():
    parts = _pedestal(28) + [(_column(42, 12), "t"), (_ring(18, 38, 44), "t")]
    parts += [(turned("M50 23L56 23L56 28L63 28L63 22L70 22L68 38L50 38"), "t")]
    return parts, []


def bishop():
    parts = _pedestal(26) + [(_column(52, 8.5), "t"), (_ring(15, 48, 54), "t")]
    parts += [(turned("M50 20C57 25 65 33 65 40C65 44 62 47 60 48L50 48"), "t"), (disc(50, 16, 5), "s")]
    return parts, ["M59.5 31L53 41"]


def knight():
    head = (
        "M30 73C30 64 44 58 48 49C44 53 38 54 34 54C31 58 28 61 24 60.5C18 60 15 56 16 51C17 46 22 42 24 37"
        "C26 31 30 26 36 23L37 12C42 14 46 17 48 21C66 22 78 40 72 73Z"
    )
    return _pedestal(28) + [(head, "c")], ["M51 28C61 34 65 48 63 66", "M33 36L36 34.5"]


def pawn():
    return _pedestal(24.5) + [(_column(52, 7, flare=16), "t"), (_ring(13.5, 50, 56), "t"), (disc(50, 40, 12), "s")], []


PIECES = {"k": king, "q": queen, "r": rook, "b": bishop, "n": knight, "p": pawn}


def draw(side, kind):
    """The SVG text of one piece: a dark rim below, the parts from the foot up, then carved grooves."""
    parts, grooves = PIECES[kind]()
    marks = [shape(path, EDGE[side], EDGE[side], RIM) for path, _ in parts]
    marks += [shape(path, f"url(#{paint})") for path, paint in parts]
    marks += [shape(path, "none", GROOVE[side], 3.2) for path in grooves]
    return document(marks, _defs(side))
