"""Family "gnu": lathe-turned pieces of ivory and ebony with rounded shading and highlights."""

from .svg import KNIGHT_NUDGE, disc, document, shape, turned

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
# Lines cut into the wood, and the shadow round each part that keeps the parts distinct.
GROOVE = {"w": "#6b4a1f", "b": "#b3a296"}
SEAM = {"w": "#553a18", "b": "#0b0807"}


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
    parts = _pedestal(28) + [(_column(50, 10), "t")]
    parts += [(turned("M50 9.8L55.6 9.8L54.4 14.6L61.5 13.2L61.5 21.8L54.4 20.4L55.6 29L50 29"), "t")]
    parts += [(turned("M50 29C53 26.5 58 25.5 63 26.5C67 27.2 71 29 72 31L62 46L50 46"), "t"), (_ring(17, 45, 52), "t")]
    return parts, []


def queen():
    crown = "M50 27C52 27 54 29 56 33C57.5 28 60 24.5 63 24C65 25 66.5 28 67.5 31C69.5 27 72 24.5 75 24.5L61 48L50 48"
    parts = _pedestal(28) + [(_column(52, 9.5), "t"), (turned(crown), "t"), (_ring(16, 47, 53.5), "t")]
    return parts + [(disc(50, 18, 6.6), "s")], []


def rook():
    parts = _pedestal(28) + [(_column(43, 12.5), "t")]
    parts += [(turned("M50 21.5L56 21.5L56 27.5L63.5 27.5L63.5 21.5L72 21.5L70 40L50 40"), "t")]
    parts += [(_ring(18.5, 39, 45.5), "t")]
    return parts, []


def bishop():
    parts = _pedestal(26) + [(_column(53, 9), "t")]
    parts += [(turned("M50 22C57 26 66.5 32 66.5 41C66.5 45 64 48 61 50L50 50"), "t")]
    parts += [(_ring(16.5, 48.5, 55), "t"), (disc(50, 18, 5.2), "s")]
    return parts, ["M60.5 31L54 41"]


def knight():
    head = (
        "M30 73C30 64 44 58 48 49C44 53 38 54 34 54C31 58 28 61 24 60.5C18 60 15 56 16 51C17 46 22 42 24 37"
        "C26 31 30 26 36 23L37 12C42 14 46 17 48 21C66 22 78 40 72 73Z"
    )
    grooves = ["M50 27C61 33 66 47 64 66", "M32.5 37L36 35.2", "M21 54L21.6 53.4"]
    return [(head, "c")] + _pedestal(28)[::-1], grooves


def pawn():
    parts = _pedestal(24.5) + [(_column(53, 7, flare=16), "t"), (disc(50, 40, 12.5), "s")]
    return parts + [(_ring(14.5, 50.5, 57), "t")], []


PIECES = {"k": king, "q": queen, "r": rook, "b": bishop, "n": knight, "p": pawn}


def draw(side, kind):
    """The SVG text of one piece: a dark rim below, the parts from the foot up, then carved grooves."""
    parts, grooves = PIECES[kind]()
    marks = [shape(path, EDGE[side], EDGE[side], RIM) for path, _ in parts]
    for path, paint in parts:
        marks += [shape(path, SEAM[side], SEAM[side], 4), shape(path, f"url(#{paint})")]
    marks += [shape(path, "none", GROOVE[side], 3.2) for path in grooves]
    return document(marks, _defs(side), KNIGHT_NUDGE if kind == "n" else 0)
