"""Small SVG writer shared by the three families: shapes, mirrored outlines and the document frame."""

import re

SIDES = "wb"
KINDS = "kqrbnp"
# The knights look to the left; this much to the right centres the whole drawing in its square.
KNIGHT_NUDGE = 3


def shape(path, fill, stroke="none", width=0.0):
    """One path element; strokes always have round joins and ends so that small sizes stay soft."""
    text = f'<path d="{path}" fill="{fill}"'
    if stroke != "none":
        text += f' stroke="{stroke}" stroke-width="{width:g}" stroke-linejoin="round" stroke-linecap="round"'
    return text + "/>"


def disc(x, y, radius):
    """Path of a full circle, written as four cubic arcs."""
    k = radius * 0.5523
    n = lambda value: f"{value:.2f}".rstrip("0").rstrip(".")
    return (
        f"M{n(x)} {n(y - radius)}"
        f"C{n(x + k)} {n(y - radius)} {n(x + radius)} {n(y - k)} {n(x + radius)} {n(y)}"
        f"C{n(x + radius)} {n(y + k)} {n(x + k)} {n(y + radius)} {n(x)} {n(y + radius)}"
        f"C{n(x - k)} {n(y + radius)} {n(x - radius)} {n(y + k)} {n(x - radius)} {n(y)}"
        f"C{n(x - radius)} {n(y - k)} {n(x - k)} {n(y - radius)} {n(x)} {n(y - radius)}Z"
    )


def half_disc(y, radius):
    """Right-hand half outline of a circle on the axis x = 50, for turned()."""
    k = radius * 0.5523
    return (
        f"M50 {y - radius:g}C{50 + k:g} {y - radius:g} {50 + radius:g} {y - k:g} {50 + radius:g} {y:g}"
        f"C{50 + radius:g} {y + k:g} {50 + k:g} {y + radius:g} 50 {y + radius:g}"
    )


def slab(left, right, top, bottom, r):
    """Path of a bar with rounded corners of radius r."""
    return (
        f"M{left + r:g} {top:g}L{right - r:g} {top:g}Q{right:g} {top:g} {right:g} {top + r:g}"
        f"L{right:g} {bottom - r:g}Q{right:g} {bottom:g} {right - r:g} {bottom:g}L{left + r:g} {bottom:g}"
        f"Q{left:g} {bottom:g} {left:g} {bottom - r:g}L{left:g} {top + r:g}Q{left:g} {top:g} {left + r:g} {top:g}Z"
    )


def _segments(path):
    """Splits an absolute M/L/C path into (command, [points])."""
    parts = []
    for command, numbers in re.findall(r"([MLC])([^MLC]*)", path):
        values = [float(v) for v in numbers.split()]
        parts.append((command, list(zip(values[::2], values[1::2]))))
    return parts


def turned(half):
    """Closes a right-hand half outline (from top to bottom, absolute M/L/C) with its mirror image about x = 50."""
    parts = _segments(half)
    ends = [points[-1] for _, points in parts]
    mirror = lambda point: f"{100 - point[0]:g} {point[1]:g}"
    out = half + "L" + mirror(ends[-1])
    for i in range(len(parts) - 1, 0, -1):
        command, points = parts[i]
        back = points[-2::-1] + [ends[i - 1]]
        out += command + " ".join(mirror(point) for point in back)
    return out + "Z"


def mirrored(path):
    """The mirror image of an open absolute M/L/C path about x = 50."""
    return "".join(
        command + " ".join(f"{100 - x:g} {y:g}" for x, y in points) for command, points in _segments(path)
    )


def document(body, defs="", nudge=0):
    """The complete file for a list of elements, moved to the right by `nudge` units."""
    head = '<svg xmlns="http://www.w3.org/2000/svg" version="1.1" viewBox="0 0 100 100" width="100" height="100">'
    lines = [head]
    if defs:
        lines.append(f"<defs>{defs}</defs>")
    if nudge:
        body = [f'<g transform="translate({nudge:g} 0)">', *body, "</g>"]
    return "\n".join(lines + list(body) + ["</svg>"]) + "\n"
